#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

// The shelf's items, newest first. `url` is empty for a file that can't be found any more.
class ShelfItemListModel : public RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Shelf.items")

public:
    enum class Role {
        itemId = Qt::UserRole + 1,
        name,
        url,
        isImage,
        busy,
    };
    Q_ENUM(Role)

    struct Row {
        QString itemId;
        QString name;
        QString url;
        bool isImage = false;
        bool busy = false;
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
