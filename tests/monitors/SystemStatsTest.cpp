#include <gtest/gtest.h>

#include "monitors/SystemStats.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

class FakeCounters final : public SystemCounterSource {
public:
    SystemCounters read() override {
        ++reads;
        return counters;
    }
    SystemCounters counters;
    int reads = 0;
};

TEST(SystemStatsParsers, ReadTheKernelsTables) {
    const auto cpu = parseProcStatCpu("cpu  100 0 50 800 50 0 0 0 0 0\ncpu0 1 2 3 4 5\nintr 1\n");
    ASSERT_TRUE(cpu);
    EXPECT_EQ(cpu->total, 1000U);
    EXPECT_EQ(cpu->busy, 150U);
    EXPECT_FALSE(parseProcStatCpu("garbage"));
    const auto memory = parseMemInfo("MemTotal:       16000 kB\nMemFree: 1 kB\nMemAvailable:    4000 kB\n");
    EXPECT_EQ(memory, std::make_pair(std::uint64_t{16000 * 1024}, std::uint64_t{4000 * 1024}));
    EXPECT_FALSE(parseMemInfo("MemTotal: 5 kB\n"));
    const std::string netDev =
        "Inter-|   Receive                            |  Transmit\n"
        " face |bytes    packets errs drop fifo frame compressed multicast|bytes    packets\n"
        "    lo: 9999 1 0 0 0 0 0 0 9999 1 0 0 0 0 0 0\n"
        "  eth0: 1000 5 0 0 0 0 0 0 300 4 0 0 0 0 0 0\n"
        " wlan0: 24 1 0 0 0 0 0 0 6 1 0 0 0 0 0 0\n";
    EXPECT_EQ(parseNetDev(netDev), std::make_pair(std::uint64_t{1024}, std::uint64_t{306}));
}

TEST(SystemStats, SamplesOnceASecondOnlyWhileWatchedAndGivesRates) {
    VirtualScheduler clock;
    FakeCounters source;
    source.counters = {100, 1000, 8000, 2000, 1000, 250, 5000, 1000, 80.0, true};
    SystemStats stats(clock, clock, source);
    clock.advance(10);
    EXPECT_EQ(source.reads, 0);

    stats.setActive(true);
    EXPECT_EQ(source.reads, 1);
    EXPECT_DOUBLE_EQ(stats.figures().memoryPercent, 75);
    EXPECT_DOUBLE_EQ(stats.figures().diskPercent, 75);
    EXPECT_EQ(stats.figures().batteryPercent, 80.0);
    source.counters.cpuBusy += 30;
    source.counters.cpuTotal += 120;
    source.counters.networkReceived += 2048;
    clock.advance(1);
    EXPECT_EQ(source.reads, 2);
    EXPECT_DOUBLE_EQ(stats.figures().cpuPercent, 25);
    EXPECT_DOUBLE_EQ(stats.figures().receivedPerSecond, 2048);
    EXPECT_DOUBLE_EQ(stats.figures().sentPerSecond, 0);

    stats.setActive(false);
    clock.advance(10);
    EXPECT_EQ(source.reads, 2);
    EXPECT_FALSE(stats.isSampling());
}

}  // namespace
}  // namespace vantrelle
