#pragma once

#include <optional>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/SystemCounters.h"
#include "support/Signal.h"

namespace vantrelle {

// Parsers of the kernel's text, for the Linux counter source.
struct CpuJiffies {
    std::uint64_t busy = 0;
    std::uint64_t total = 0;
};
[[nodiscard]] std::optional<CpuJiffies> parseProcStatCpu(std::string_view procStat);
// MemTotal and MemAvailable of /proc/meminfo, in bytes.
[[nodiscard]] std::optional<std::pair<std::uint64_t, std::uint64_t>> parseMemInfo(std::string_view memInfo);
// Received and sent bytes summed over /proc/net/dev, loopback left out.
[[nodiscard]] std::pair<std::uint64_t, std::uint64_t> parseNetDev(std::string_view netDev);

// CPU, memory, disk, network rates and battery for the System Analytics view, sampled once a second
// only while a view watches. Main thread only.
class SystemStats {
public:
    static constexpr double kInterval = 1.0;

    struct Figures {
        double cpuPercent = 0;
        double memoryPercent = 0;
        std::uint64_t memoryUsed = 0;
        std::uint64_t memoryTotal = 0;
        double diskPercent = 0;
        std::uint64_t diskFree = 0;
        std::uint64_t diskTotal = 0;
        double receivedPerSecond = 0;
        double sentPerSecond = 0;
        std::optional<double> batteryPercent;
        bool charging = false;
    };

    SystemStats(Scheduler& scheduler, const Clock& clock, SystemCounterSource& source);

    void setActive(bool active);
    [[nodiscard]] const Figures& figures() const { return m_figures; }
    [[nodiscard]] bool isSampling() const { return m_timer.isActive(); }
    void sample();

    Signal<> changed;

private:
    Scheduler& m_scheduler;
    const Clock& m_clock;
    SystemCounterSource& m_source;
    int m_watchers = 0;
    RepeatingTimer m_timer;
    std::optional<SystemCounters> m_last;
    Date m_lastAt;
    Figures m_figures;
};

}  // namespace vantrelle
