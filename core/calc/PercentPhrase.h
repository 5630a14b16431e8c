#pragma once

#include <optional>
#include <string_view>

#include "calc/CalcResult.h"

namespace vantrelle {

// Sentences about percentages, tried in this order on a normalised line:
//   "x is what % of y", "x as percent of y", "x as percentage of y"  →  x / y × 100, shown with "%"
//   "x% of y"                                                         →  x / 100 × y
//   "x% off y"                                                        →  y less x percent, and the saving
// x and y are expressions in their own right. Nothing when the line isn't such a sentence; throws
// CalcError when it is one but x or y doesn't evaluate.
class PercentPhrase {
public:
    [[nodiscard]] static std::optional<CalcResult> evaluate(std::string_view normalized,
                                                            std::optional<double> previous);
};

}  // namespace vantrelle
