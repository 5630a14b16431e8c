#include "DashboardTileListModel.h"

namespace vantrelle {

QVariant DashboardTileListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> DashboardTileListModel::roleNames() const {
    return {{static_cast<int>(Role::raw), "raw"},   {static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::icon), "icon"}, {static_cast<int>(Role::subtitle), "subtitle"},
            {static_cast<int>(Role::tool), "tool"}, {static_cast<int>(Role::tint), "tint"},
            {static_cast<int>(Role::view), "view"}};
}

}  // namespace vantrelle
