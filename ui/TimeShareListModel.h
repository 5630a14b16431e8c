#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct TimeShareRow {
    QString key;  // desktop id or category name
    QString name;
    QString category;
    QString duration;
    double fraction = 0;  // of the largest row, for the bar
    bool operator==(const TimeShareRow&) const = default;
};

// Rows of time shares: screen time by application or by category, each with its part of the largest.
class TimeShareListModel : public VANTRELLE_ROW_LIST(TimeShareRow) {
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

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
