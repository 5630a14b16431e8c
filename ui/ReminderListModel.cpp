#include "ReminderListModel.h"

namespace vantrelle {

QVariant ReminderListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::title:
            return row->title;
        case Role::due:
            return row->due;
        case Role::calendar:
            return row->calendar;
        case Role::done:
            return row->done;
    }
    return {};
}

QHash<int, QByteArray> ReminderListModel::roleNames() const {
    return {{static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::due), "due"},
            {static_cast<int>(Role::calendar), "calendar"},
            {static_cast<int>(Role::done), "done"}};
}

}  // namespace vantrelle
