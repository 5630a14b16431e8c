#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// Notes as a list shows them: derived title and preview, when each last changed, which one is open.
class NoteListModel : public RowListModel {
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

    struct Row {
        QString noteId;
        QString title;
        QString preview;
        QString changed;
        bool selected = false;
        bool operator==(const Row&) const = default;
    };

    using RowListModel::RowListModel;

    void setRows(std::vector<Row> rows) { replaceRows(m_rows, std::move(rows)); }
    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }

    [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<Row> m_rows;
};

}  // namespace vantrelle
