#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "DevServerListModel.h"
#include "monitors/DevServerMonitor.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Dev Servers view's face (`DevServers` in QML): the servers, and Open and Stop for each.
class DevServersViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(DevServers)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::DevServerListModel* servers READ servers CONSTANT)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QString dockerHelp READ dockerHelp CONSTANT)

public:
    explicit DevServersViewModel(DevServerMonitor& monitor);
    static DevServersViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] DevServerListModel* servers() { return &m_servers; }
    [[nodiscard]] QString summary() const;
    [[nodiscard]] static QString dockerHelp() { return QStringLiteral("Stop this container in Docker"); }

    // The view and the tile each say whether they are on screen; the figures move while either is.
    // Repeated calls with the same value change nothing.
    Q_INVOKABLE void setViewShown(bool shown) { setShown(m_viewShown, shown); }
    Q_INVOKABLE void setTileShown(bool shown) { setShown(m_tileShown, shown); }
    Q_INVOKABLE void refresh() { m_monitor.refresh(); }
    Q_INVOKABLE void stop(int port);
    Q_INVOKABLE void open(int port);

Q_SIGNALS:
    void changed();

private:
    void setShown(bool& flag, bool shown) {
        if (flag == shown) return;
        flag = shown;
        m_monitor.setActive(shown);
    }

    void refreshRows();

    DevServerMonitor& m_monitor;
    DevServerListModel m_servers;
    Connection m_connection;
    bool m_viewShown = false;
    bool m_tileShown = false;
};

}  // namespace vantrelle
