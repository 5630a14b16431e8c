#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The calculator's kept lines, newest first; `entryIndex` is the line's place for recall.
class CalcEntryListModel : public RowListModel {
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

    struct Row {
        int entryIndex = 0;
        QString expression;
        QString result;
        QString detail;
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
