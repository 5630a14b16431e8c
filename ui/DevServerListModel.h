#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct DevServerRow {
    int port = 0;
    QString project;
    QString kind;
    QString process;
    int pid = 0;
    QString url;
    bool isDocker = false;
    bool stopping = false;
    bool operator==(const DevServerRow&) const = default;
};

// The Dev Servers view's rows, by port.
class DevServerListModel : public VANTRELLE_ROW_LIST(DevServerRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from DevServers.servers")

public:
    enum class Role {
        port = Qt::UserRole + 1,
        project,
        kind,
        process,
        pid,
        url,
        isDocker,
        stopping,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
