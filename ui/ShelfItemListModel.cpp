#include "ShelfItemListModel.h"

namespace vantrelle {

QVariant ShelfItemListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
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

}  // namespace vantrelle
