#include "DevServersViewModel.h"

#include <QDesktopServices>
#include <QUrl>

#include "ShellEngine.h"
#include "monitors/DevServerReport.h"

namespace vantrelle {

DevServersViewModel::DevServersViewModel(DevServerMonitor& monitor) : m_monitor(monitor) {
    m_connection = m_monitor.changed.connect([this] {
        refreshRows();
        Q_EMIT changed();
    });
    refreshRows();
}

DevServersViewModel* DevServersViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::devServers);
}

QString DevServersViewModel::summary() const {
    const auto count = m_monitor.servers().size();
    if (count == 0) return QStringLiteral("No servers running");
    return count == 1 ? QStringLiteral("1 server running") : QStringLiteral("%1 servers running").arg(count);
}

void DevServersViewModel::refreshRows() {
    std::vector<DevServerListModel::Row> rows;
    for (const DevServer& server : m_monitor.servers()) {
        const std::string project = server.cwd.empty() ? server.process : server.project();
        rows.push_back({static_cast<int>(server.port), QString::fromStdString(project),
                        QString::fromStdString(devServerKindLabel(server)),
                        QString::fromStdString(server.process), static_cast<int>(server.pid),
                        QString::fromStdString(server.url()), server.isDocker(),
                        m_monitor.stopping().contains(server.port)});
    }
    m_servers.setRows(std::move(rows));
}

void DevServersViewModel::stop(int port) {
    for (const DevServer& server : m_monitor.servers()) {
        if (server.port == port) {
            m_monitor.stop(server);
            return;
        }
    }
}

void DevServersViewModel::open(int port) {
    QDesktopServices::openUrl(QUrl(QStringLiteral("http://localhost:%1/").arg(port)));
}

}  // namespace vantrelle
