#pragma once

#include <vector>

#include "calc/CalcEntry.h"

namespace vantrelle {

// The calculator's canned history for demo mode.
class CalcDemo {
public:
    [[nodiscard]] static std::vector<CalcEntry> calcHistory();
};

}  // namespace vantrelle
