// The battery from a stand-in UPower display device on a private bus, through the real adapter into
// the monitor and the live activities on virtual time.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <utility>

#include "linux/PrivateSessionBus.h"
#include "linux/TestApplication.h"
#include "monitors/BatteryMonitor.h"
#include "monitors/UPowerPowerSource.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

const QString kPath = QString::fromLatin1(UPowerPowerSource::kDisplayDevice);
const QString kInterface = QString::fromLatin1(UPowerPowerSource::kDeviceInterface);

// UPower's display device with the properties the adapter reads; changes go out as PropertiesChanged.
class FakeDisplayDevice final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.UPower.Device")
    Q_PROPERTY(double Percentage MEMBER percentage)
    Q_PROPERTY(uint State MEMBER state)
    Q_PROPERTY(qlonglong TimeToEmpty MEMBER timeToEmpty)
    Q_PROPERTY(qlonglong TimeToFull MEMBER timeToFull)
    Q_PROPERTY(bool IsPresent MEMBER isPresent)
    Q_PROPERTY(uint Type MEMBER type)

public:
    void change(QDBusConnection& bus, const QVariantMap& values) {
        for (auto it = values.begin(); it != values.end(); ++it) setProperty(it.key().toLatin1(), it.value());
        QDBusMessage signal = QDBusMessage::createSignal(
            kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        signal << kInterface << values << QStringList();
        bus.send(signal);
    }

    double percentage = 50;
    uint state = 2;  // discharging
    qlonglong timeToEmpty = 7200;
    qlonglong timeToFull = 0;
    bool isPresent = true;
    uint type = 2;  // battery
};

// Counts what the adapter reports, so a test can wait for an answer that changes nothing.
class CountingSource final : public PowerSource {
public:
    explicit CountingSource(PowerSource& inner) : m_inner(inner) {}
    void start(std::function<void(const std::optional<PowerReading>&)> changed) override {
        m_inner.start([this, changed = std::move(changed)](const std::optional<PowerReading>& reading) {
            ++reports;
            changed(reading);
        });
    }
    int reports = 0;

private:
    PowerSource& m_inner;
};

class BatteryMonitorTest : public testing::PrivateSessionBusTest {
protected:
    void TearDown() override {
        upower.unregisterObject(kPath);
        upower.unregisterService(QString::fromLatin1(UPowerPowerSource::kService));
    }
    void serve() {
        ASSERT_TRUE(upower.registerObject(kPath, &device, QDBusConnection::ExportAllProperties));
        ASSERT_TRUE(upower.registerService(QString::fromLatin1(UPowerPowerSource::kService)));
    }
    [[nodiscard]] std::optional<LiveActivity::Battery> shown() const {
        const auto& current = activities.current();
        if (!current || !current->is<LiveActivity::Battery>()) return std::nullopt;
        return *current->as<LiveActivity::Battery>();
    }

    QDBusConnection upower = QDBusConnection::connectToBus(bus->address(), QStringLiteral("upower"));
    QDBusConnection ours = QDBusConnection::connectToBus(bus->address(), QStringLiteral("ours"));
    FakeDisplayDevice device;
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    UPowerPowerSource upowerSource{ours};
    CountingSource source{upowerSource};
    BatteryMonitor monitor{source, activities};
    int changes = 0;
    Connection counting = monitor.changed.connect([this] { ++changes; });
};

TEST_F(BatteryMonitorTest, LevelsAndChargingFlashWhenPluggedInAndRunningLow) {
    serve();
    monitor.start();
    ASSERT_TRUE(spinUntil([&] { return monitor.hasBattery(); }));
    EXPECT_EQ(monitor.reading()->timeToEmpty, 7200);
    EXPECT_FALSE(activities.current()) << "the state at launch is no event";

    struct Step {
        double percent;
        uint state;
        std::optional<LiveActivity::Battery> flash;
        double seconds;
        const char* why;
    };
    const Step steps[] = {
        {50, 1, LiveActivity::Battery{50, true}, 4.0, "plugged in"},
        {50, 2, std::nullopt, 0, "unplugged: no flash"},
        {21, 2, std::nullopt, 0, "above the low level"},
        {19.6, 2, LiveActivity::Battery{20, false}, 6.0, "low at 20 (rounded)"},
        {15, 2, std::nullopt, 0, "already low"},
        {9, 6, LiveActivity::Battery{9, false}, 6.0, "past 10, pending discharge"},
        {9, 4, LiveActivity::Battery{9, true}, 4.0, "fully charged means plugged in"},
        {30, 5, std::nullopt, 0, "still plugged in, pending charge"},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.why);
        const int before = changes;
        device.change(upower,
                      {{QStringLiteral("Percentage"), step.percent}, {QStringLiteral("State"), step.state}});
        ASSERT_TRUE(spinUntil([&] { return changes > before; }));
        EXPECT_EQ(shown(), step.flash);
        if (!step.flash) continue;
        scheduler.advance(step.seconds - 0.01);
        EXPECT_EQ(shown(), step.flash) << "shown for its full time";
        scheduler.advance(0.01);
        EXPECT_FALSE(activities.current()) << "and gone after it";
    }

    device.change(upower, {{QStringLiteral("IsPresent"), false}});
    ASSERT_TRUE(spinUntil([&] { return !monitor.hasBattery(); }));
    EXPECT_FALSE(activities.current());
}

TEST_F(BatteryMonitorTest, WithoutUPowerNothingHappensUntilItAppears) {
    monitor.start();
    ASSERT_TRUE(spinUntil([&] { return source.reports == 1; }));
    EXPECT_FALSE(monitor.hasBattery());
    EXPECT_EQ(changes, 0);
    serve();
    ASSERT_TRUE(spinUntil([&] { return monitor.hasBattery(); }));
    EXPECT_EQ(monitor.percent(), 50);
}

TEST(BatteryCountersTest, TheDaemonsBatteryWinsOverTheKernelsWhereThereIsOne) {
    struct Kernel final : SystemCounterSource {
        SystemCounters read() override { return {.batteryPercent = 77}; }
    } kernel;
    struct Fixed final : PowerSource {
        void start(std::function<void(const std::optional<PowerReading>&)>) override {}
    } fixed;
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    BatteryMonitor battery{fixed, activities};
    EXPECT_EQ(BatteryCounters(kernel, &battery).read().batteryPercent, 77) << "no battery known: /sys stays";
    battery.read(PowerReading{42.4, PowerState::charging, 0, 600});
    const SystemCounters counters = BatteryCounters(kernel, &battery).read();
    EXPECT_EQ(counters.batteryPercent, 42);
    EXPECT_TRUE(counters.charging);
}

}  // namespace
}  // namespace vantrelle

#include "BatteryMonitorTest.moc"
