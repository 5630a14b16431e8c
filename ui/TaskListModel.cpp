#include "TaskListModel.h"

namespace vantrelle {

QVariant TaskListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::taskId:
            return row->taskId;
        case Role::title:
            return row->title;
        case Role::isDone:
            return row->isDone;
    }
    return {};
}

}  // namespace vantrelle
