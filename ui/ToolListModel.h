#pragma once

#include <QColor>
#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct ToolRow {
    QString raw;
    QString title;
    QString icon;
    QColor tint;
    bool operator==(const ToolRow&) const = default;
};

// The enabled tools in dock order: the rail's and the dock's items.
class ToolListModel : public VANTRELLE_ROW_LIST(ToolRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Shell.tabs")

public:
    enum class Role {
        raw = Qt::UserRole + 1,
        title,
        icon,
        tint,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
