#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct UsageDayRow {
    QString label;
    QString tokens;
    QString cost;
    double fraction = 0;
    bool isToday = false;
    bool operator==(const UsageDayRow&) const = default;
};

// The last seven days of agent usage, oldest first, as the panel's bars show them.
class UsageDayListModel : public VANTRELLE_ROW_LIST(UsageDayRow) {
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

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
