#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct CalcEntryRow {
    int entryIndex = 0;
    QString expression;
    QString result;
    QString detail;
    bool operator==(const CalcEntryRow&) const = default;
};

// The calculator's kept lines, newest first; `entryIndex` is the line's place for recall.
class CalcEntryListModel : public VANTRELLE_ROW_LIST(CalcEntryRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Calc.entries")

public:
    enum class Role {
        entryIndex = Qt::UserRole + 1,
        expression,
        result,
        detail,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
