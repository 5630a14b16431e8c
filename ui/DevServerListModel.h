#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The Dev Servers view's rows, by port.
class DevServerListModel : public RowListModel {
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

    struct Row {
        int port = 0;
        QString project;
        QString kind;
        QString process;
        int pid = 0;
        QString url;
        bool isDocker = false;
        bool stopping = false;
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
