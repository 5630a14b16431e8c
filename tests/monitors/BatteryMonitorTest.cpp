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

    QDBusConnection upower = QDBusConnection::connectToBus(bus->address(), QStringLiteral("upower"));
    QDBusConnection ours = QDBusConnection::connectToBus(bus->address(), QStringLiteral("ours"));
    FakeDisplayDevice device;
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    UPowerPowerSource upowerSource{ours};
    CountingSource source{upowerSource};
    BatteryMonitor monitor{source, activities};
};

// The rules are core tests (SystemStatsTest); this proves the daemon's properties and changes reach them.
TEST_F(BatteryMonitorTest, ReadsTheDisplayDeviceAndFollowsItsChanges) {
    serve();
    monitor.start();
    ASSERT_TRUE(spinUntil([&] { return monitor.hasBattery(); }));
    EXPECT_EQ(monitor.reading(), (std::optional<PowerReading>{{50, PowerState::discharging, 7200, 0}}));
    EXPECT_FALSE(activities.current()) << "the state at launch is no event";

    device.change(upower, {{QStringLiteral("State"), 1u}, {QStringLiteral("TimeToFull"), qlonglong{600}}});
    ASSERT_TRUE(spinUntil([&] { return monitor.charging(); }));
    EXPECT_EQ(monitor.reading()->timeToFull, 600);
    EXPECT_EQ(*activities.current(), (LiveActivity{LiveActivity::Battery{50, true}}));

    device.change(upower, {{QStringLiteral("IsPresent"), false}});
    ASSERT_TRUE(spinUntil([&] { return !monitor.hasBattery(); }));
}

TEST_F(BatteryMonitorTest, WithoutUPowerNothingHappensUntilItAppears) {
    monitor.start();
    ASSERT_TRUE(spinUntil([&] { return source.reports == 1; }));
    EXPECT_FALSE(monitor.hasBattery());
    serve();
    ASSERT_TRUE(spinUntil([&] { return monitor.hasBattery(); }));
    EXPECT_EQ(monitor.percent(), 50);
}

}  // namespace
}  // namespace vantrelle

#include "BatteryMonitorTest.moc"
