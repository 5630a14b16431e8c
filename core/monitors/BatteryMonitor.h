#pragma once

#include <array>
#include <optional>

#include "activity/LiveActivityCenter.h"
#include "platform/PowerSource.h"
#include "platform/SystemCounters.h"
#include "support/Signal.h"

namespace vantrelle {

// The battery: its level, whether the machine is plugged in and the time left either way. Plugging in
// and running low flash the battery in the closed notch; a machine without a battery stays silent.
// Main thread only.
class BatteryMonitor {
public:
    static constexpr double kPluggedInFlash = 4.0;
    static constexpr double kLowFlash = 6.0;
    // Each level flashes when the charge falls past it on battery power.
    static constexpr std::array<std::int64_t, 2> kLowLevels{20, 10};

    BatteryMonitor(PowerSource& source, LiveActivityCenter& activities);
    BatteryMonitor(const BatteryMonitor&) = delete;
    BatteryMonitor& operator=(const BatteryMonitor&) = delete;

    [[nodiscard]] static BatteryMonitor& shared();

    // Begins listening to the power source; a background service.
    void start();
    // A reading from the source; none when the battery went away or there never was one.
    void read(const std::optional<PowerReading>& reading);

    [[nodiscard]] bool hasBattery() const { return m_reading.has_value(); }
    [[nodiscard]] const std::optional<PowerReading>& reading() const { return m_reading; }
    // Whole percent, as the notch shows it; 0 without a battery.
    [[nodiscard]] std::int64_t percent() const;
    [[nodiscard]] bool charging() const { return m_reading && m_reading->pluggedIn(); }

    Signal<> changed;

private:
    PowerSource& m_source;
    LiveActivityCenter& m_activities;
    std::optional<PowerReading> m_reading;
    bool m_started = false;
};

// The System Analytics counters with the battery taken from the power daemon where it knows one, and
// from the underlying source (the kernel's files) otherwise.
class BatteryCounters final : public SystemCounterSource {
public:
    BatteryCounters(SystemCounterSource& base, const BatteryMonitor* battery)
        : m_base(base), m_battery(battery) {}
    [[nodiscard]] SystemCounters read() override;

private:
    SystemCounterSource& m_base;
    const BatteryMonitor* m_battery;
};

}  // namespace vantrelle
