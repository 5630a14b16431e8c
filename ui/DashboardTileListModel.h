#pragma once

#include <QColor>
#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The Dashboard's tiles in the user's order; `tool` is the tool a click opens, empty when it isn't on.
class DashboardTileListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Shell.dashboardTiles")

public:
    enum class Role {
        raw = Qt::UserRole + 1,
        title,
        icon,
        subtitle,
        tool,
        tint,
        view,
    };
    Q_ENUM(Role)

    struct Row {
        QString raw;
        QString title;
        QString icon;
        QString subtitle;
        QString tool;
        QColor tint;
        QString view;  // the live tile's component, empty for a tile that only says what it will hold
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
