#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// Today's reminders, open ones first.
class ReminderListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Reminders.items")

public:
    enum class Role { title = Qt::UserRole + 1, due, calendar, done };
    Q_ENUM(Role)

    struct Row {
        QString title;
        QString due;
        QString calendar;
        bool done = false;
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
