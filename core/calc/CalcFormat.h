#pragma once

#include <string>

namespace vantrelle {

// Numbers as the calculator shows them. Zero and magnitudes from 1e-6 up to below 1e15 are decimal with
// en_US grouping ("1,234.5") and at most maxFraction fraction digits; smaller and larger magnitudes are
// scientific with at most 6 significant digits and a bare "e" ("1e15", "2.5e-7"). Rounding is half to
// even on the shortest decimal form of the double, so 0.1 + 0.2 shows as "0.3".
class CalcFormat {
public:
    [[nodiscard]] static std::string format(double value, int maxFraction);
};

}  // namespace vantrelle
