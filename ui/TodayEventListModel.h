#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct TodayEventRow {
    QString title;
    QString time;
    QString calendar;
    bool allDay = false;
    bool declined = false;
    QString joinUrl;  // empty: no Join button
    QString service;
    bool isNext = false;
    bool operator==(const TodayEventRow&) const = default;
};

// Today's events as the Today view and tile list them: all-day first, then by start.
class TodayEventListModel : public VANTRELLE_ROW_LIST(TodayEventRow) {
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

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
