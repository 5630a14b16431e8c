#include "TaskListModel.h"

namespace vantrelle {

QVariant TaskListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> TaskListModel::roleNames() const {
    return {{static_cast<int>(Role::taskId), "taskId"},
            {static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::isDone), "isDone"}};
}

}  // namespace vantrelle
