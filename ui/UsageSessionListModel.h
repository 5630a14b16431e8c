#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The agent sessions as the usage panel lists them.
class UsageSessionListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from AIUsage.sessions")

public:
    enum class Role {
        sessionState = Qt::UserRole + 1,
        tool,
        project,
        title,
        branch,
        modelFamily,
        tokens,
        cost,
        active,
        lastPrompt,
    };
    Q_ENUM(Role)

    struct Row {
        QString sessionState;
        QString tool;
        QString project;
        QString title;
        QString branch;
        QString modelFamily;
        QString tokens;
        QString cost;
        QString active;
        QString lastPrompt;
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
