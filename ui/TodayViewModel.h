#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <functional>

#include "TodayEventListModel.h"
#include "schedule/CalendarService.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Today view's face (`Today` in QML): the day's events with their Join links, and access.
class TodayViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Today)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::TodayEventListModel* events READ events CONSTANT)
    Q_PROPERTY(bool hasCalendars READ hasCalendars NOTIFY changed)
    // The meeting the Dashboard's Join button offers; an empty URL when there is none.
    Q_PROPERTY(QString joinTitle READ joinTitle NOTIFY changed)
    Q_PROPERTY(QString joinTime READ joinTime NOTIFY changed)
    Q_PROPERTY(QString joinUrl READ joinUrl NOTIFY changed)
    Q_PROPERTY(QString joinService READ joinService NOTIFY changed)

public:
    // `opened` opens a link with the desktop's handler and says whether it could; `joined` records a
    // join for the recap.
    TodayViewModel(CalendarService& service, std::function<bool(const QString&)> open,
                   std::function<void()> joined);
    static TodayViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] TodayEventListModel* events() { return &m_events; }
    [[nodiscard]] bool hasCalendars() const {
        return m_service.status() == CalendarService::Access::fullAccess;
    }

    [[nodiscard]] QString joinTitle() const { return m_joinTitle; }
    [[nodiscard]] QString joinTime() const { return m_joinTime; }
    [[nodiscard]] QString joinUrl() const { return m_joinUrl; }
    [[nodiscard]] QString joinService() const { return m_joinService; }

    // Opens the call and counts the join.
    Q_INVOKABLE void join(const QString& url);
    Q_INVOKABLE void requestAccess() { m_service.requestAccess(); }

Q_SIGNALS:
    void changed();

private:
    void refreshRows();

    CalendarService& m_service;
    std::function<bool(const QString&)> m_open;
    std::function<void()> m_joined;
    TodayEventListModel m_events;
    QString m_joinTitle;
    QString m_joinTime;
    QString m_joinUrl;
    QString m_joinService;
    std::vector<Connection> m_connections;
};

}  // namespace vantrelle
