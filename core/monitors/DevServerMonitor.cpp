#include "monitors/DevServerMonitor.h"

#include <algorithm>

#include "monitors/DevServerRules.h"
#include "support/DebugLog.h"

namespace vantrelle {

std::vector<DevServer> selectDevServers(std::vector<ListeningSocket> sockets, ProcessControl& processes,
                                        pid_t ownPid, const std::string& home) {
    std::stable_sort(sockets.begin(), sockets.end(),
                     [](const ListeningSocket& a, const ListeningSocket& b) { return a.port < b.port; });
    std::vector<DevServer> servers;
    std::set<std::int64_t> seen;
    for (const ListeningSocket& socket : sockets) {
        if (socket.pid == ownPid || socket.pid <= 0 || seen.contains(socket.port)) continue;
        const auto details = processes.details(socket.pid);
        if (!details) continue;  // ended since the listing
        auto kind = detectDevServerKind(socket.command, details->arguments);
        if (!isDevProcess(socket.command, details->arguments, details->executable, kind, socket.port, home)) {
            continue;
        }
        seen.insert(socket.port);
        servers.push_back(
            {socket.port, socket.pid, socket.command, details->workingDirectory, std::move(kind)});
    }
    return servers;
}

DevServerMonitor::DevServerMonitor(Deps deps)
    : m_deps(std::move(deps)), m_queue(m_deps.queues.make("devservers")) {}

DevServerMonitor::~DevServerMonitor() {
    *m_alive = false;
    m_timer.cancel();
    m_pending.clear();
    m_queue.reset();  // finishes queued work while the members it touches still exist
}

std::vector<DevServer> DevServerMonitor::scan() {
    if (m_deps.demoMode) return demoServers();
    std::string error;
    auto sockets = m_deps.ports.list(error);
    if (!sockets) {
        DebugLog::write([&] { return "devservers: listing failed: " + error; });
        return {};
    }
    return selectDevServers(std::move(*sockets), m_deps.processes, m_deps.ownPid, m_deps.home);
}

std::vector<DevServer> DevServerMonitor::demoServers() {
    return {
        {3000, 41001, "node", "/code/aurora-shop", std::string("Next.js")},
        {5173, 41002, "node", "/code/orbit-dashboard", std::string("Vite")},
        {5432, 41003, "postgres", "/code/orbit-dashboard", std::string("Postgres")},
        {8000, 41004, "python3", "/code/northwind-api", std::string("Uvicorn")},
    };
}

void DevServerMonitor::setActive(bool active) {
    const int before = m_watchers;
    m_watchers = std::max(0, m_watchers + (active ? 1 : -1));
    if (before == 0 && m_watchers > 0) {
        refresh();
        m_timer = m_deps.scheduler.repeat(kPollInterval, [this] { refresh(); });
    } else if (before > 0 && m_watchers == 0) {
        m_timer.cancel();
    }
}

void DevServerMonitor::refresh() {
    m_queue->async([alive = std::weak_ptr<bool>(m_alive), this] {
        auto servers = scan();
        m_deps.scheduler.post([alive, this, servers = std::move(servers)]() mutable {
            if (alive.expired()) return;
            publish(std::move(servers));
        });
    });
}

void DevServerMonitor::publish(std::vector<DevServer> servers) {
    m_servers = std::move(servers);
    m_lastScan = m_deps.clock.now();
    std::erase_if(m_stopping, [this](std::int64_t port) {
        return std::none_of(m_servers.begin(), m_servers.end(),
                            [port](const DevServer& s) { return s.port == port; });
    });
    changed.emit();
}

void DevServerMonitor::scheduleRefresh(double delay) {
    std::erase_if(m_pending, [](const WorkItem& item) { return !item.isActive(); });
    m_pending.push_back(m_deps.scheduler.schedule(delay, [this] { refresh(); }));
}

void DevServerMonitor::stop(const DevServer& server) {
    if (server.isDocker() || m_deps.demoMode || server.pid == m_deps.ownPid) return;
    m_stopping.insert(server.port);
    changed.emit();
    m_queue->async([this, server] {
        m_deps.processes.send(server.pid, ProcessSignal::terminate);
        DebugLog::write([&] {
            return "devservers: asked " + server.process + " (" + std::to_string(server.pid) +
                   ") on :" + std::to_string(server.port) + " to stop";
        });
    });
    m_pending.push_back(m_deps.scheduler.schedule(kKillDelay, [this, server] { forceIfStillThere(server); }));
    scheduleRefresh(kRefreshDelay);
}

void DevServerMonitor::forceIfStillThere(DevServer server) {
    m_queue->async([alive = std::weak_ptr<bool>(m_alive), this, server] {
        const auto now = scan();
        const bool still = std::any_of(now.begin(), now.end(), [&](const DevServer& s) {
            return s.port == server.port && s.pid == server.pid;
        });
        if (!still) return;
        m_deps.processes.send(server.pid, ProcessSignal::kill);
        DebugLog::write([&] { return "devservers: forced " + server.process + " to stop"; });
        m_deps.scheduler.post([alive, this] {
            if (!alive.expired()) scheduleRefresh(kRefreshDelay);
        });
    });
}

void DevServerMonitor::stopPort(std::int64_t port) {
    m_queue->async([alive = std::weak_ptr<bool>(m_alive), this, port] {
        const auto servers = scan();
        const auto found = std::find_if(servers.begin(), servers.end(),
                                        [port](const DevServer& s) { return s.port == port; });
        if (found == servers.end()) {
            DebugLog::write([&] { return "devservers: nothing on :" + std::to_string(port); });
            return;
        }
        m_deps.scheduler.post([alive, this, server = *found] {
            if (!alive.expired()) stop(server);
        });
    });
}

}  // namespace vantrelle
