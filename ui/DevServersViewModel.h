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

    Q_INVOKABLE void setActive(bool active) { m_monitor.setActive(active); }
    Q_INVOKABLE void refresh() { m_monitor.refresh(); }
    Q_INVOKABLE void stop(int port);
    Q_INVOKABLE void open(int port);

Q_SIGNALS:
    void changed();

private:
    void refreshRows();

    DevServerMonitor& m_monitor;
    DevServerListModel m_servers;
    Connection m_connection;
};

}  // namespace vantrelle
