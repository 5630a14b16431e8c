#include "LauncherAppListModel.h"

namespace vantrelle {

QVariant LauncherAppListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
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

}  // namespace vantrelle
