#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace vantrelle {

// The power supply's charge state, as the system's power daemon names it.
enum class PowerState {
    unknown,
    charging,
    discharging,
    empty,
    fullyCharged,
    pendingCharge,
    pendingDischarge
};

// One reading of the machine's battery (all batteries together, where there are several).
struct PowerReading {
    double percent = 0;
    PowerState state = PowerState::unknown;
    std::int64_t timeToEmpty = 0;  // seconds; 0 while unknown
    std::int64_t timeToFull = 0;   // seconds; 0 while unknown

    // On external power, whether or not the battery is taking charge right now.
    [[nodiscard]] bool pluggedIn() const {
        return state == PowerState::charging || state == PowerState::fullyCharged ||
               state == PowerState::pendingCharge;
    }
    bool operator==(const PowerReading&) const = default;
};

// Where battery readings come from. A machine without a battery, or without the power daemon, only
// ever reports none.
class PowerSource {
public:
    virtual ~PowerSource() = default;
    // From now on `changed` gets every new reading on the main thread, the first as soon as it is known.
    virtual void start(std::function<void(const std::optional<PowerReading>&)> changed) = 0;
};

}  // namespace vantrelle
