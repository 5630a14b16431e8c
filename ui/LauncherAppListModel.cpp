#include "LauncherAppListModel.h"

namespace vantrelle {

QVariant LauncherAppListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::appId:
            return row->appId;
        case Role::name:
            return row->name;
        case Role::iconSource:
            return row->iconSource;
    }
    return {};
}

QHash<int, QByteArray> LauncherAppListModel::roleNames() const {
    return {{static_cast<int>(Role::appId), "appId"},
            {static_cast<int>(Role::name), "name"},
            {static_cast<int>(Role::iconSource), "iconSource"}};
}

}  // namespace vantrelle
