#include "TimeShareListModel.h"

namespace vantrelle {

QVariant TimeShareListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
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

}  // namespace vantrelle
