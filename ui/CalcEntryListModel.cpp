#include "CalcEntryListModel.h"

namespace vantrelle {

QVariant CalcEntryListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::entryIndex:
            return row->entryIndex;
        case Role::expression:
            return row->expression;
        case Role::result:
            return row->result;
        case Role::detail:
            return row->detail;
    }
    return {};
}

}  // namespace vantrelle
