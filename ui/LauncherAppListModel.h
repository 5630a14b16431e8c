#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The launcher's applications, in the desktop's order.
class LauncherAppListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Launcher.apps")

public:
    enum class Role { appId = Qt::UserRole + 1, name, iconSource };
    Q_ENUM(Role)

    struct Row {
        QString appId;
        QString name;
        QString iconSource;  // "image://launcher/<icon>"
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
