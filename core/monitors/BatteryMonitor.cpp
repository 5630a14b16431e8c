#include "monitors/BatteryMonitor.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "support/DebugLog.h"
#include "support/SharedInstance.h"

namespace vantrelle {

namespace {

std::int64_t wholePercent(double percent) {
    if (!std::isfinite(percent)) return 0;
    return std::llround(std::clamp(percent, 0.0, 100.0));
}

}  // namespace

BatteryMonitor::BatteryMonitor(PowerSource& source, LiveActivityCenter& activities)
    : m_source(source), m_activities(activities) {}

BatteryMonitor& BatteryMonitor::shared() {
    return SharedInstance<BatteryMonitor>::get();
}

void BatteryMonitor::start() {
    if (std::exchange(m_started, true)) return;
    m_source.start([this](const std::optional<PowerReading>& reading) { read(reading); });
}

std::int64_t BatteryMonitor::percent() const {
    return m_reading ? wholePercent(m_reading->percent) : 0;
}

void BatteryMonitor::read(const std::optional<PowerReading>& reading) {
    if (reading == m_reading) return;
    const std::optional<PowerReading> before = std::exchange(m_reading, reading);
    if (before.has_value() != reading.has_value()) {
        DebugLog::write(reading ? "battery: found" : "battery: none");
    }
    // The first reading only says how things stand at launch: nothing happened, so nothing flashes.
    if (before && reading) {
        const std::int64_t was = wholePercent(before->percent);
        const std::int64_t now = wholePercent(reading->percent);
        if (reading->pluggedIn() && !before->pluggedIn()) {
            DebugLog::write([&] { return "battery: plugged in at " + std::to_string(now) + "%"; });
            m_activities.flash(LiveActivity{LiveActivity::Battery{now, true}}, kPluggedInFlash);
        } else if (!reading->pluggedIn()) {
            for (std::int64_t level : kLowLevels) {
                if (was > level && now <= level) {
                    DebugLog::write([&] { return "battery: low at " + std::to_string(now) + "%"; });
                    m_activities.flash(LiveActivity{LiveActivity::Battery{now, false}}, kLowFlash);
                    break;
                }
            }
        }
    }
    changed.emit();
}

SystemCounters BatteryCounters::read() {
    SystemCounters counters = m_base.read();
    if (m_battery && m_battery->hasBattery()) {
        counters.batteryPercent = static_cast<double>(m_battery->percent());
        counters.charging = m_battery->charging();
    }
    return counters;
}

}  // namespace vantrelle
