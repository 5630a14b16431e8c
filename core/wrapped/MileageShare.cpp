#include "wrapped/MileageShare.h"

#include <fmt/format.h>

#include <cmath>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {
constexpr double kLapMetres = 400.0;
}

double metresToday(const CursorMileage& mileage, Date now) {
    const auto days = mileage.meters(now, now);
    return days.empty() ? 0.0 : days.front();
}

std::string distanceText(double metres) {
    if (!std::isfinite(metres) || metres < 0) metres = 0;
    if (metres < 999.5) return fmt::format("{} m", static_cast<long long>(std::lround(metres)));
    const double km = metres / 1000.0;
    if (km < 9.95) return fmt::format("{:.1f} km", km);
    return fmt::format("{} km", static_cast<long long>(std::llround(km)));
}

std::string mileageShareText(double metres) {
    if (!std::isfinite(metres) || metres < 0) metres = 0;
    std::string text = "My cursor travelled " + distanceText(metres) + " today";
    const auto laps = static_cast<long long>(std::floor(metres / kLapMetres));
    if (laps == 1) text += ", a lap of a running track";
    if (laps > 1) text += fmt::format(", {} laps of a running track", laps);
    return text + ". Counted by Vantrelle.";
}

std::string MileageShare::share() {
    std::string text = mileageShareText(metresToday(m_mileage, m_clock.now()));
    m_clipboard.setText(text);
    DebugLog::write([&] { return "wrapped: copied today's mileage: " + text; });
    return text;
}

}  // namespace vantrelle
