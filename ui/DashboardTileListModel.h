#pragma once

#include <QColor>
#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct DashboardTileRow {
    QString raw;
    QString title;
    QString icon;
    QString subtitle;
    QString tool;
    QColor tint;
    QString view;  // the live tile's component, empty for a tile that only says what it will hold
    bool operator==(const DashboardTileRow&) const = default;
};

// The Dashboard's tiles in the user's order; `tool` is the tool a click opens, empty when it isn't on.
class DashboardTileListModel : public VANTRELLE_ROW_LIST(DashboardTileRow) {
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

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
