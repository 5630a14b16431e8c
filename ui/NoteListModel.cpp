#include "NoteListModel.h"

namespace vantrelle {

QVariant NoteListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> NoteListModel::roleNames() const {
    return {{static_cast<int>(Role::noteId), "noteId"},
            {static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::preview), "preview"},
            {static_cast<int>(Role::changed), "changed"},
            {static_cast<int>(Role::selected), "selected"}};
}

}  // namespace vantrelle
