#include "CalendarFolderListModel.h"

namespace vantrelle {

QVariant CalendarFolderListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> CalendarFolderListModel::roleNames() const {
    return {{static_cast<int>(Role::path), "path"},
            {static_cast<int>(Role::added), "added"},
            {static_cast<int>(Role::found), "found"}};
}

}  // namespace vantrelle
