#include "CalcEntryListModel.h"

namespace vantrelle {

QVariant CalcEntryListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> CalcEntryListModel::roleNames() const {
    return {{static_cast<int>(Role::entryIndex), "entryIndex"},
            {static_cast<int>(Role::expression), "expression"},
            {static_cast<int>(Role::result), "result"},
            {static_cast<int>(Role::detail), "detail"}};
}

}  // namespace vantrelle
