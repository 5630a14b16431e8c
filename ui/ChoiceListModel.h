#pragma once

#include <QColor>
#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct ChoiceRow {
    QString raw;
    QString title;
    QString icon;  // a glyph of the icon font; an image's source where the list says so
    QString detail;
    QColor tint;
    bool chosen = false;
    bool operator==(const ChoiceRow&) const = default;
};

// A list of named things the settings window offers: tools, Dashboard tiles, quick toggles. Each row
// has its raw name, what the user reads, and whether it is chosen.
class ChoiceListModel : public VANTRELLE_ROW_LIST(ChoiceRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Settings")

public:
    enum class Role {
        raw = Qt::UserRole + 1,
        title,
        icon,
        detail,
        tint,
        chosen,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
