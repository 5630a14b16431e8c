#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The last seven days of agent usage, oldest first, as the panel's bars show them.
class UsageDayListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from AIUsage.days")

public:
    enum class Role {
        label = Qt::UserRole + 1,
        tokens,
        cost,
        fraction,
        isToday,
    };
    Q_ENUM(Role)

    struct Row {
        QString label;
        QString tokens;
        QString cost;
        double fraction = 0;
        bool isToday = false;
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
