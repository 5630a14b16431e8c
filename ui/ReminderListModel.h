#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct ReminderRow {
    QString title;
    QString due;
    QString calendar;
    bool done = false;
    bool operator==(const ReminderRow&) const = default;
};

// Today's reminders, open ones first.
class ReminderListModel : public VANTRELLE_ROW_LIST(ReminderRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Reminders.items")

public:
    enum class Role { title = Qt::UserRole + 1, due, calendar, done };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
