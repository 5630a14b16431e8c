#pragma once

#include <string>

#include "calc/CalcResult.h"

namespace vantrelle {

// A result for the terminal: the answer as the panel shows it, then its detail line if it has one.
[[nodiscard]] std::string calcText(const CalcResult& result);

// A result as one line of JSON: kind, display, detail (null without one) and value (left out unless it
// is a finite number).
[[nodiscard]] std::string calcJsonLine(const CalcResult& result);

}  // namespace vantrelle
