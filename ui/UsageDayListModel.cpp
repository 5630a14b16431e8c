#include "UsageDayListModel.h"

namespace vantrelle {

QVariant UsageDayListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::label:
            return row->label;
        case Role::tokens:
            return row->tokens;
        case Role::cost:
            return row->cost;
        case Role::fraction:
            return row->fraction;
        case Role::isToday:
            return row->isToday;
    }
    return {};
}

}  // namespace vantrelle
