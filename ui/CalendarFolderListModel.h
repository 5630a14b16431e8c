#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct CalendarFolderRow {
    QString path;
    bool added = false;
    bool found = false;
    bool operator==(const CalendarFolderRow&) const = default;
};

// The calendar folders the settings window lists: where each is, whether the user added it (only
// those can be removed) and whether it is there now.
class CalendarFolderListModel : public VANTRELLE_ROW_LIST(CalendarFolderRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Settings")

public:
    enum class Role { path = Qt::UserRole + 1, added, found };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
