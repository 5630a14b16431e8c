#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct ShelfItemRow {
    QString itemId;
    QString name;
    QString url;
    bool isImage = false;
    bool busy = false;
    bool operator==(const ShelfItemRow&) const = default;
};

// The shelf's items, newest first. `url` is empty for a file that can't be found any more.
class ShelfItemListModel : public VANTRELLE_ROW_LIST(ShelfItemRow) {
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

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
