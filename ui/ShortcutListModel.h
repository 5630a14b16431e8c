#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The shortcut rows of the settings: the notch, then every tool, each with its combo.
class ShortcutListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Shortcuts")

public:
    enum class Role {
        target = Qt::UserRole + 1,
        title,
        display,  // the combo, empty when none
        note,     // why the combo doesn't work, empty when it does
        recording,
    };
    Q_ENUM(Role)

    struct Row {
        QString target;
        QString title;
        QString display;
        QString note;
        bool recording = false;
        bool operator==(const Row&) const = default;
    };

    using RowListModel::RowListModel;

    void setRows(std::vector<Row> rows) { replaceRows(m_rows, std::move(rows)); }
    [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<Row> m_rows;
};

}  // namespace vantrelle
