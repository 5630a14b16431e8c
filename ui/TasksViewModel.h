#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "TaskListModel.h"
#include "notes/TaskStore.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Tasks panel's and tile's face (`Tasks` in QML): open and done items and what can be done to them.
class TasksViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Tasks)
    QML_SINGLETON
    Q_PROPERTY(int openCount READ openCount NOTIFY changed)
    Q_PROPERTY(int doneCount READ doneCount NOTIFY changed)
    Q_PROPERTY(vantrelle::TaskListModel* openTasks READ openTasks CONSTANT)
    Q_PROPERTY(vantrelle::TaskListModel* doneTasks READ doneTasks CONSTANT)
    // The first open items, for the Dashboard tile.
    Q_PROPERTY(vantrelle::TaskListModel* nextTasks READ nextTasks CONSTANT)

public:
    explicit TasksViewModel(TaskStore& store);
    static TasksViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] int openCount() const { return m_openTasks.count(); }
    [[nodiscard]] int doneCount() const { return m_doneTasks.count(); }
    [[nodiscard]] TaskListModel* openTasks() { return &m_openTasks; }
    [[nodiscard]] TaskListModel* doneTasks() { return &m_doneTasks; }
    [[nodiscard]] TaskListModel* nextTasks() { return &m_nextTasks; }

    // False for a blank title, which adds nothing.
    Q_INVOKABLE bool add(const QString& title) { return m_store.add(title.toStdString()); }
    Q_INVOKABLE void toggle(const QString& id) { m_store.toggle(id.toStdString()); }
    Q_INVOKABLE void remove(const QString& id) { m_store.remove(id.toStdString()); }
    Q_INVOKABLE void clearDone() { m_store.clearDone(); }

Q_SIGNALS:
    void changed();

private:
    void refresh();

    TaskStore& m_store;
    TaskListModel m_openTasks;
    TaskListModel m_doneTasks;
    TaskListModel m_nextTasks;
    Connection m_connection;
};

}  // namespace vantrelle
