#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "monitors/DevServer.h"
#include "platform/Clock.h"
#include "platform/ListeningPorts.h"
#include "platform/ProcessControl.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"

namespace vantrelle {

// Finds the user's local development servers and stops one on request. Scans run on the
// "devservers" queue and only while some view watches; results are published on the main thread.
class DevServerMonitor {
public:
    static constexpr double kPollInterval = 3.0;
    static constexpr double kKillDelay = 3.0;     // after the polite signal, the forceful one
    static constexpr double kRefreshDelay = 0.6;  // for the list to show a stopped server gone

    struct Deps {
        Scheduler& scheduler;
        const Clock& clock;
        QueueFactory& queues;
        ListeningPorts& ports;
        ProcessControl& processes;
        pid_t ownPid = 0;
        std::string home;
        bool demoMode = false;
    };

    explicit DevServerMonitor(Deps deps);
    ~DevServerMonitor();
    DevServerMonitor(const DevServerMonitor&) = delete;
    DevServerMonitor& operator=(const DevServerMonitor&) = delete;

    // A view that shows servers calls this with true on appearing and false on going away. Polling
    // runs while at least one watches.
    void setActive(bool active);
    void refresh();
    // Asks the server's process to end, and forces it after kKillDelay if it is still listening.
    // Docker containers, our own process and demo rows are left alone.
    void stop(const DevServer& server);
    // The launch hook: stops whatever listens on `port`, or logs that nothing does.
    void stopPort(std::int64_t port);

    [[nodiscard]] const std::vector<DevServer>& servers() const { return m_servers; }
    [[nodiscard]] const std::set<std::int64_t>& stopping() const { return m_stopping; }
    [[nodiscard]] const std::optional<Date>& lastScan() const { return m_lastScan; }
    [[nodiscard]] int watchers() const { return m_watchers; }
    [[nodiscard]] bool isPolling() const { return m_timer.isActive(); }

    // One listing, blocking: the queue's work, and what the command line prints.
    [[nodiscard]] std::vector<DevServer> scan();
    [[nodiscard]] static std::vector<DevServer> demoServers();

    Signal<> changed;

private:
    void publish(std::vector<DevServer> servers);
    void scheduleRefresh(double delay);
    void forceIfStillThere(DevServer server);

    Deps m_deps;
    std::unique_ptr<SerialQueue> m_queue;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::vector<DevServer> m_servers;
    std::set<std::int64_t> m_stopping;
    std::optional<Date> m_lastScan;
    int m_watchers = 0;
    RepeatingTimer m_timer;
    std::vector<WorkItem> m_pending;  // delayed refreshes and kills, cancelled with the monitor
};

// The servers among `sockets`, as the monitor lists them: sorted by port, one per port, our own
// process left out, each process looked at through `processes`.
[[nodiscard]] std::vector<DevServer> selectDevServers(std::vector<ListeningSocket> sockets,
                                                      ProcessControl& processes, pid_t ownPid,
                                                      const std::string& home);

}  // namespace vantrelle
