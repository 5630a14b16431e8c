#pragma once

#include <string>

#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "wrapped/CursorMileage.h"

namespace vantrelle {

// Today's metres of pointer travel, what is not yet booked included.
[[nodiscard]] double metresToday(const CursorMileage& mileage, Date now);
// What demo mode shows instead: a recording's pointer has hardly moved yet.
inline constexpr double kDemoMetresToday = 1240;

// A distance for people: "850 m" below a kilometre, "1.2 km" below ten, "12 km" from there on.
[[nodiscard]] std::string distanceText(double metres);

// The short text "Share" copies, e.g. "My cursor travelled 2.4 km today, 6 laps of a running track.
// Counted by Vantrelle." The laps (400 m each) are left out below one lap.
[[nodiscard]] std::string mileageShareText(double metres);

// "Share" on the Day Progress tile: today's mileage as a short text on the clipboard.
class MileageShare {
public:
    MileageShare(const CursorMileage& mileage, const Clock& clock, Clipboard& clipboard)
        : m_mileage(mileage), m_clock(clock), m_clipboard(clipboard) {}

    // Copies the text and returns it.
    std::string share();

private:
    const CursorMileage& m_mileage;
    const Clock& m_clock;
    Clipboard& m_clipboard;
};

}  // namespace vantrelle
