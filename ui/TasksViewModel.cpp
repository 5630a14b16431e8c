#include "TasksViewModel.h"

#include "ShellEngine.h"

namespace vantrelle {

namespace {

std::vector<TaskListModel::Row> rowsOf(const std::vector<TodoItem>& items, std::size_t limit = SIZE_MAX) {
    std::vector<TaskListModel::Row> rows;
    for (const TodoItem& item : items) {
        if (rows.size() == limit) break;
        rows.push_back({QString::fromStdString(item.id), QString::fromStdString(item.title), item.isDone});
    }
    return rows;
}

}  // namespace

TasksViewModel::TasksViewModel(TaskStore& store) : m_store(store) {
    m_connection = m_store.changed.connect([this] { refresh(); });
    refresh();
}

TasksViewModel* TasksViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::tasks);
}

void TasksViewModel::refresh() {
    const auto open = m_store.openItems();
    m_openTasks.setRows(rowsOf(open));
    m_nextTasks.setRows(rowsOf(open, TaskStore::kOpenShown));
    m_doneTasks.setRows(rowsOf(m_store.doneItems()));
    Q_EMIT changed();
}

}  // namespace vantrelle
