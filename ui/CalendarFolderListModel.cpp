#include "CalendarFolderListModel.h"

namespace vantrelle {

QVariant CalendarFolderListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::path:
            return row->path;
        case Role::added:
            return row->added;
        case Role::found:
            return row->found;
    }
    return {};
}

}  // namespace vantrelle
