#include "monitors/SystemStats.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace vantrelle {
namespace {

std::vector<std::uint64_t> numbersOf(std::string_view line) {
    std::vector<std::uint64_t> numbers;
    while (!line.empty()) {
        const std::size_t start = line.find_first_of("0123456789");
        if (start == std::string_view::npos) break;
        line.remove_prefix(start);
        std::uint64_t value = 0;
        const auto [end, ec] = std::from_chars(line.data(), line.data() + line.size(), value);
        if (ec != std::errc()) break;
        numbers.push_back(value);
        line.remove_prefix(static_cast<std::size_t>(end - line.data()));
    }
    return numbers;
}

std::string_view lineStarting(std::string_view text, std::string_view prefix) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view line = text.substr(at, end - at);
        if (line.starts_with(prefix)) return line;
        at = end + 1;
    }
    return {};
}

double percent(double part, double whole) {
    return whole > 0 ? std::clamp(100.0 * part / whole, 0.0, 100.0) : 0.0;
}

double rate(std::uint64_t now, std::uint64_t before, double seconds) {
    return now >= before && seconds > 0 ? static_cast<double>(now - before) / seconds : 0.0;
}

}  // namespace

std::optional<CpuJiffies> parseProcStatCpu(std::string_view procStat) {
    const std::string_view line = lineStarting(procStat, "cpu ");
    const auto numbers = numbersOf(line.substr(std::min<std::size_t>(3, line.size())));
    if (numbers.size() < 5) return std::nullopt;
    CpuJiffies jiffies;
    for (std::size_t i = 0; i < std::min<std::size_t>(numbers.size(), 8); ++i) jiffies.total += numbers[i];
    jiffies.busy = jiffies.total - numbers[3] - numbers[4];  // idle and iowait
    return jiffies;
}

std::optional<std::pair<std::uint64_t, std::uint64_t>> parseMemInfo(std::string_view memInfo) {
    const auto total = numbersOf(lineStarting(memInfo, "MemTotal:"));
    const auto available = numbersOf(lineStarting(memInfo, "MemAvailable:"));
    if (total.empty() || available.empty()) return std::nullopt;
    return std::make_pair(total[0] * 1024, available[0] * 1024);
}

std::pair<std::uint64_t, std::uint64_t> parseNetDev(std::string_view netDev) {
    std::uint64_t received = 0, sent = 0;
    std::size_t at = 0;
    while (at < netDev.size()) {
        const std::size_t end = std::min(netDev.find('\n', at), netDev.size());
        std::string_view line = netDev.substr(at, end - at);
        at = end + 1;
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos) continue;
        std::string_view name = line.substr(0, colon);
        name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
        if (name == "lo") continue;
        const auto numbers = numbersOf(line.substr(colon + 1));
        if (numbers.size() < 9) continue;
        received += numbers[0];
        sent += numbers[8];
    }
    return {received, sent};
}

SystemStats::SystemStats(Scheduler& scheduler, const Clock& clock, SystemCounterSource& source)
    : m_scheduler(scheduler), m_clock(clock), m_source(source) {}

void SystemStats::setActive(bool active) {
    const int before = m_watchers;
    m_watchers = std::max(0, m_watchers + (active ? 1 : -1));
    if (before == 0 && m_watchers > 0) {
        m_last.reset();  // rates restart: the counters moved on while nobody looked
        sample();
        m_timer = m_scheduler.repeat(kInterval, [this] { sample(); });
    } else if (before > 0 && m_watchers == 0) {
        m_timer.cancel();
    }
}

void SystemStats::sample() {
    const SystemCounters now = m_source.read();
    const Date at = m_clock.now();
    Figures f;
    if (m_last) {
        const double seconds = at - m_lastAt;
        const auto busy = static_cast<double>(now.cpuBusy - std::min(now.cpuBusy, m_last->cpuBusy));
        const auto total = static_cast<double>(now.cpuTotal - std::min(now.cpuTotal, m_last->cpuTotal));
        f.cpuPercent = percent(busy, total);
        f.receivedPerSecond = rate(now.networkReceived, m_last->networkReceived, seconds);
        f.sentPerSecond = rate(now.networkSent, m_last->networkSent, seconds);
    }
    f.memoryTotal = now.memoryTotal;
    f.memoryUsed = now.memoryTotal - std::min(now.memoryTotal, now.memoryAvailable);
    f.memoryPercent = percent(static_cast<double>(f.memoryUsed), static_cast<double>(now.memoryTotal));
    f.diskTotal = now.diskTotal;
    f.diskFree = now.diskFree;
    f.diskPercent = percent(static_cast<double>(now.diskTotal - std::min(now.diskTotal, now.diskFree)),
                            static_cast<double>(now.diskTotal));
    f.batteryPercent = now.batteryPercent;
    f.charging = now.charging;
    m_figures = f;
    m_last = now;
    m_lastAt = at;
    changed.emit();
}

}  // namespace vantrelle
