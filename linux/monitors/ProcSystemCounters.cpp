#include "monitors/ProcSystemCounters.h"

#include <sys/statvfs.h>

#include <cstdlib>
#include <tuple>

#include "monitors/ProcFiles.h"
#include "monitors/SystemStats.h"

namespace vantrelle {

SystemCounters ProcSystemCounters::read() {
    SystemCounters counters;
    if (const auto cpu = parseProcStatCpu(procfs::readSmall(m_proc / "stat"))) {
        counters.cpuBusy = cpu->busy;
        counters.cpuTotal = cpu->total;
    }
    if (const auto memory = parseMemInfo(procfs::readSmall(m_proc / "meminfo"))) {
        counters.memoryTotal = memory->first;
        counters.memoryAvailable = memory->second;
    }
    std::tie(counters.networkReceived, counters.networkSent) =
        parseNetDev(procfs::readSmall(m_proc / "net/dev"));
    struct statvfs disk {};
    if (::statvfs(m_home.c_str(), &disk) == 0) {
        counters.diskTotal = static_cast<std::uint64_t>(disk.f_blocks) * disk.f_frsize;
        counters.diskFree = static_cast<std::uint64_t>(disk.f_bavail) * disk.f_frsize;
    }
    std::error_code error;
    for (const auto& supply : std::filesystem::directory_iterator(m_power, error)) {
        if (procfs::readSmall(supply.path() / "type").rfind("Battery", 0) != 0) continue;
        const std::string capacity = procfs::readSmall(supply.path() / "capacity");
        if (capacity.empty()) continue;
        counters.batteryPercent = std::strtod(capacity.c_str(), nullptr);
        const std::string status = procfs::readSmall(supply.path() / "status");
        counters.charging = status.rfind("Charging", 0) == 0 || status.rfind("Full", 0) == 0;
        break;
    }
    return counters;
}

}  // namespace vantrelle
