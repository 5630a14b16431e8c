#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct LauncherAppRow {
    QString appId;
    QString name;
    QString iconSource;  // "image://launcher/<icon>"
    bool operator==(const LauncherAppRow&) const = default;
};

// The launcher's applications, in the desktop's order.
class LauncherAppListModel : public VANTRELLE_ROW_LIST(LauncherAppRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Launcher.apps")

public:
    enum class Role { appId = Qt::UserRole + 1, name, iconSource };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
