#include "TimeShareListModel.h"

namespace vantrelle {

QVariant TimeShareListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::key:
            return row->key;
        case Role::name:
            return row->name;
        case Role::category:
            return row->category;
        case Role::duration:
            return row->duration;
        case Role::fraction:
            return row->fraction;
    }
    return {};
}

QHash<int, QByteArray> TimeShareListModel::roleNames() const {
    return {{static_cast<int>(Role::key), "key"},
            {static_cast<int>(Role::name), "name"},
            {static_cast<int>(Role::category), "category"},
            {static_cast<int>(Role::duration), "duration"},
            {static_cast<int>(Role::fraction), "fraction"}};
}

}  // namespace vantrelle
