#include "ChoiceListModel.h"

namespace vantrelle {

QVariant ChoiceListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::raw:
            return row->raw;
        case Role::title:
            return row->title;
        case Role::icon:
            return row->icon;
        case Role::detail:
            return row->detail;
        case Role::tint:
            return row->tint;
        case Role::chosen:
            return row->chosen;
    }
    return {};
}

}  // namespace vantrelle
