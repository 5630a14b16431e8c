#include "ShortcutListModel.h"

namespace vantrelle {

QVariant ShortcutListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
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

}  // namespace vantrelle
