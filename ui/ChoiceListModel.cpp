#include "ChoiceListModel.h"

namespace vantrelle {

QVariant ChoiceListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::raw:
            return row->raw;
        case Role::title:
            return row->title;
        case Role::icon:
            return row->icon;
        case Role::detail:
            return row->detail;
        case Role::tint:
            return row->tint;
        case Role::chosen:
            return row->chosen;
    }
    return {};
}

QHash<int, QByteArray> ChoiceListModel::roleNames() const {
    return {{static_cast<int>(Role::raw), "raw"},   {static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::icon), "icon"}, {static_cast<int>(Role::detail), "detail"},
            {static_cast<int>(Role::tint), "tint"}, {static_cast<int>(Role::chosen), "chosen"}};
}

}  // namespace vantrelle
