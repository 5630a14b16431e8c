#include "DashboardTileListModel.h"

namespace vantrelle {

QVariant DashboardTileListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::raw:
            return row->raw;
        case Role::title:
            return row->title;
        case Role::icon:
            return row->icon;
        case Role::subtitle:
            return row->subtitle;
        case Role::tool:
            return row->tool;
        case Role::tint:
            return row->tint;
        case Role::view:
            return row->view;
    }
    return {};
}

}  // namespace vantrelle
