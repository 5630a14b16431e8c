#pragma once

#include <cstdint>
#include <optional>

namespace vantrelle {

// One reading of the machine's counters. Rates come from the difference of two readings.
struct SystemCounters {
    std::uint64_t cpuBusy = 0;          // jiffies spent on anything but idle and I/O wait, all processors
    std::uint64_t cpuTotal = 0;         // all jiffies
    std::uint64_t memoryTotal = 0;      // bytes
    std::uint64_t memoryAvailable = 0;  // bytes
    std::uint64_t diskTotal = 0;        // bytes of the home folder's file system
    std::uint64_t diskFree = 0;         // bytes available to the user
    std::uint64_t networkReceived = 0;  // bytes over every interface but loopback
    std::uint64_t networkSent = 0;
    std::optional<double> batteryPercent;  // none on a machine without a battery
    bool charging = false;
};

// Reads the counters. Cheap (a few small files); called once a second while a view shows them.
class SystemCounterSource {
public:
    virtual ~SystemCounterSource() = default;
    [[nodiscard]] virtual SystemCounters read() = 0;
};

}  // namespace vantrelle
