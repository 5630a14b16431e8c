#include <gtest/gtest.h>

#include "monitors/BatteryMonitor.h"
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
    EXPECT_EQ(std::make_pair(cpu->total, cpu->busy), std::make_pair(std::uint64_t{1000}, std::uint64_t{150}));
    EXPECT_FALSE(parseProcStatCpu("garbage"));
    const auto memory = parseMemInfo("MemTotal:       16000 kB\nMemFree: 1 kB\nMemAvailable:    4000 kB\n");
    EXPECT_EQ(memory, std::make_pair(std::uint64_t{16000 * 1024}, std::uint64_t{4000 * 1024}));
    EXPECT_FALSE(parseMemInfo("MemTotal: 5 kB\n"));
    const std::string netDev =
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
    source.counters.cpuBusy += 30;
    source.counters.cpuTotal += 120;
    source.counters.networkReceived += 2048;
    clock.advance(1);
    EXPECT_EQ(source.reads, 2);
    EXPECT_DOUBLE_EQ(stats.figures().cpuPercent, 25);
    EXPECT_DOUBLE_EQ(stats.figures().receivedPerSecond, 2048);

    stats.setActive(false);
    clock.advance(10);
    EXPECT_EQ(source.reads, 2);
}

class BatteryMonitorRules : public ::testing::Test {
protected:
    [[nodiscard]] std::optional<LiveActivity::Battery> shown() const {
        const auto& current = activities.current();
        if (!current || !current->is<LiveActivity::Battery>()) return std::nullopt;
        return *current->as<LiveActivity::Battery>();
    }

    struct : PowerSource {
        void start(std::function<void(const std::optional<PowerReading>&)>) override {}
    } none;
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    BatteryMonitor battery{none, activities};
};

TEST_F(BatteryMonitorRules, FlashesWhenPluggedInAndWhenFallingPastALowLevel) {
    using enum PowerState;
    battery.read(PowerReading{50, discharging, 7200, 0});
    EXPECT_FALSE(activities.current()) << "the state at launch is no event";
    const struct {
        double percent;
        PowerState state;
        std::optional<LiveActivity::Battery> flash;
        double seconds;
        const char* why;
    } steps[] = {
        {50, charging, LiveActivity::Battery{50, true}, 4.0, "plugged in"},
        {51, discharging, std::nullopt, 0, "unplugged: no flash"},
        {21, discharging, std::nullopt, 0, "above the low level"},
        {19.6, discharging, LiveActivity::Battery{20, false}, 6.0, "low at 20 (rounded)"},
        {15, discharging, std::nullopt, 0, "already low"},
        {9, pendingDischarge, LiveActivity::Battery{9, false}, 6.0, "past 10, pending discharge"},
        {9, fullyCharged, LiveActivity::Battery{9, true}, 4.0, "fully charged means plugged in"},
        {30, pendingCharge, std::nullopt, 0, "still plugged in, pending charge"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.why);
        battery.read(PowerReading{step.percent, step.state, 0, 0});
        EXPECT_EQ(shown(), step.flash);
        if (!step.flash) continue;
        scheduler.advance(step.seconds - 0.01);
        EXPECT_EQ(shown(), step.flash) << "shown for its full time";
        scheduler.advance(0.01);
        EXPECT_FALSE(activities.current()) << "and gone after it";
    }
}

TEST_F(BatteryMonitorRules, TheDaemonsBatteryWinsOverTheKernelsWhereThereIsOne) {
    struct Kernel final : SystemCounterSource {
        SystemCounters read() override { return {.batteryPercent = 77}; }
    } kernel;
    EXPECT_EQ(BatteryCounters(kernel, &battery).read().batteryPercent, 77) << "no battery known: /sys stays";
    battery.read(PowerReading{42.4, PowerState::charging, 0, 600});
    const SystemCounters counters = BatteryCounters(kernel, &battery).read();
    EXPECT_EQ(counters.batteryPercent, 42);
    EXPECT_TRUE(counters.charging);
}

}  // namespace
}  // namespace vantrelle
