#include "NoteListModel.h"

namespace vantrelle {

QVariant NoteListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::noteId:
            return row->noteId;
        case Role::title:
            return row->title;
        case Role::preview:
            return row->preview;
        case Role::changed:
            return row->changed;
        case Role::selected:
            return row->selected;
    }
    return {};
}

}  // namespace vantrelle
