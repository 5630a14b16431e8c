#include "ShellTheme.h"

#include <cmath>
#include <numbers>

namespace vantrelle {

int ShellTheme::duration(Spring spring) {
    return static_cast<int>(std::lround(spring.response * 1300));
}

qreal ShellTheme::overshoot(Spring spring) {
    const double z = spring.dampingFraction;
    const double peak = std::exp(-std::numbers::pi * z / std::sqrt(1 - z * z));
    // 1.70158 is OutBack's overshoot for a 10 % peak.
    return 1.70158 * peak / 0.1;
}

}  // namespace vantrelle
