#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// Rows of time shares: screen time by application or by category, each with its part of the largest.
class TimeShareListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from ScreenTime.apps or ScreenTime.categories")

public:
    enum class Role {
        key = Qt::UserRole + 1,
        name,
        category,
        duration,
        fraction,
    };
    Q_ENUM(Role)

    struct Row {
        QString key;  // desktop id or category name
        QString name;
        QString category;
        QString duration;
        double fraction = 0;  // of the largest row, for the bar
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
