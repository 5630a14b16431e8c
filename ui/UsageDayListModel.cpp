#include "UsageDayListModel.h"

namespace vantrelle {

QVariant UsageDayListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> UsageDayListModel::roleNames() const {
    return {{static_cast<int>(Role::label), "label"},
            {static_cast<int>(Role::tokens), "tokens"},
            {static_cast<int>(Role::cost), "cost"},
            {static_cast<int>(Role::fraction), "fraction"},
            {static_cast<int>(Role::isToday), "isToday"}};
}

}  // namespace vantrelle
