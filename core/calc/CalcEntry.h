#pragma once

#include <optional>
#include <string>

namespace vantrelle {

// One line of the calculator's history.
struct CalcEntry {
    std::string expression;
    std::string result;                 // the display text of the answer
    std::optional<std::string> detail;  // its explanation, when it has one
    std::optional<double> value;        // the numeric answer, for "ans"

    bool operator==(const CalcEntry&) const = default;
};

}  // namespace vantrelle
