#pragma once

#include <filesystem>

#include "platform/SystemCounters.h"

namespace vantrelle {

// The counters from /proc/stat, /proc/meminfo, /proc/net/dev, statvfs(2) of the home folder and the
// first battery under /sys/class/power_supply.
class ProcSystemCounters final : public SystemCounterSource {
public:
    explicit ProcSystemCounters(std::filesystem::path home, std::filesystem::path proc = "/proc",
                                std::filesystem::path powerSupplies = "/sys/class/power_supply")
        : m_home(std::move(home)), m_proc(std::move(proc)), m_power(std::move(powerSupplies)) {}
    [[nodiscard]] SystemCounters read() override;

private:
    std::filesystem::path m_home;
    std::filesystem::path m_proc;
    std::filesystem::path m_power;
};

}  // namespace vantrelle
