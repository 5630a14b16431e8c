#include "ReminderListModel.h"

namespace vantrelle {

QVariant ReminderListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
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

}  // namespace vantrelle
