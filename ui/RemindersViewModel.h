#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>

#include "ReminderListModel.h"
#include "schedule/ReminderList.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Reminders view's face (`Reminders` in QML): to-dos due today, ticked off in their files.
class RemindersViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Reminders)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::ReminderListModel* items READ items CONSTANT)
    Q_PROPERTY(int openCount READ openCount NOTIFY changed)

public:
    explicit RemindersViewModel(ReminderList& list);
    static RemindersViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] ReminderListModel* items() { return &m_items; }
    [[nodiscard]] int openCount() const;

    // Reads the calendars again; the views call it when they show.
    Q_INVOKABLE void refresh() { m_list.refresh(); }
    Q_INVOKABLE bool complete(int index);

Q_SIGNALS:
    void changed();

private:
    void refreshRows();

    ReminderList& m_list;
    ReminderListModel m_items;
    Connection m_connection;
};

}  // namespace vantrelle
