#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The calendar folders the settings window lists: where each is, whether the user added it (only
// those can be removed) and whether it is there now.
class CalendarFolderListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Settings")

public:
    enum class Role { path = Qt::UserRole + 1, added, found };
    Q_ENUM(Role)

    struct Row {
        QString path;
        bool added = false;
        bool found = false;
        bool operator==(const Row&) const = default;
    };

    using RowListModel::RowListModel;

    void setRows(std::vector<Row> rows) { replaceRows(m_rows, std::move(rows)); }
    [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<Row> m_rows;
};

}  // namespace vantrelle
