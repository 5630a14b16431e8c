#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// Today's events as the Today view and tile list them: all-day first, then by start.
class TodayEventListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Today.events")

public:
    enum class Role {
        title = Qt::UserRole + 1,
        time,
        calendar,
        allDay,
        declined,
        joinUrl,
        service,
        isNext,
    };
    Q_ENUM(Role)

    struct Row {
        QString title;
        QString time;
        QString calendar;
        bool allDay = false;
        bool declined = false;
        QString joinUrl;  // empty: no Join button
        QString service;
        bool isNext = false;
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
