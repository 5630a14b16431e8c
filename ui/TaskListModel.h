#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct TaskRow {
    QString taskId;
    QString title;
    bool isDone = false;
    bool operator==(const TaskRow&) const = default;
};

// To-do items as a list shows them.
class TaskListModel : public VANTRELLE_ROW_LIST(TaskRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from Tasks.openTasks or Tasks.doneTasks")

public:
    enum class Role {
        taskId = Qt::UserRole + 1,
        title,
        isDone,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
