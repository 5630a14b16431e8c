#include "ShortcutListModel.h"

namespace vantrelle {

QVariant ShortcutListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::target:
            return row->target;
        case Role::title:
            return row->title;
        case Role::display:
            return row->display;
        case Role::note:
            return row->note;
        case Role::recording:
            return row->recording;
    }
    return {};
}

QHash<int, QByteArray> ShortcutListModel::roleNames() const {
    return {{static_cast<int>(Role::target), "target"},
            {static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::display), "display"},
            {static_cast<int>(Role::note), "note"},
            {static_cast<int>(Role::recording), "recording"}};
}

}  // namespace vantrelle
