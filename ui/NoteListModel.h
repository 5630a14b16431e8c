#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct NoteRow {
    QString noteId;
    QString title;
    QString preview;
    QString changed;
    bool selected = false;
    bool operator==(const NoteRow&) const = default;
};

// Notes as a list shows them: derived title and preview, when each last changed, which one is open.
class NoteListModel : public VANTRELLE_ROW_LIST(NoteRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Notes.notes or Notes.latest")

public:
    enum class Role {
        noteId = Qt::UserRole + 1,
        title,
        preview,
        changed,
        selected,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
