#pragma once

#include <QColor>
#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// A list of named things the settings window offers: tools, Dashboard tiles, quick toggles. Each row
// has its raw name, what the user reads, and whether it is chosen.
class ChoiceListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Settings")

public:
    enum class Role {
        raw = Qt::UserRole + 1,
        title,
        icon,
        detail,
        tint,
        chosen,
    };
    Q_ENUM(Role)

    struct Row {
        QString raw;
        QString title;
        QString icon;  // a glyph of the icon font; an image's source where the list says so
        QString detail;
        QColor tint;
        bool chosen = false;
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
