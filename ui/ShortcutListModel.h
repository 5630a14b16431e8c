#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct ShortcutRow {
    QString target;
    QString title;
    QString display;
    QString note;
    bool recording = false;
    bool operator==(const ShortcutRow&) const = default;
};

// The shortcut rows of the settings: the notch, then every tool, each with its combo.
class ShortcutListModel : public VANTRELLE_ROW_LIST(ShortcutRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Shortcuts")

public:
    enum class Role {
        target = Qt::UserRole + 1,
        title,
        display,  // the combo, empty when none
        note,     // why the combo doesn't work, empty when it does
        recording,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
