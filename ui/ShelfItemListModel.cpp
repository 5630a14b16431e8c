#include "ShelfItemListModel.h"

namespace vantrelle {

QVariant ShelfItemListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::itemId:
            return row->itemId;
        case Role::name:
            return row->name;
        case Role::url:
            return row->url;
        case Role::isImage:
            return row->isImage;
        case Role::busy:
            return row->busy;
    }
    return {};
}

QHash<int, QByteArray> ShelfItemListModel::roleNames() const {
    return {{static_cast<int>(Role::itemId), "itemId"},
            {static_cast<int>(Role::name), "name"},
            {static_cast<int>(Role::url), "url"},
            {static_cast<int>(Role::isImage), "isImage"},
            {static_cast<int>(Role::busy), "busy"}};
}

}  // namespace vantrelle
