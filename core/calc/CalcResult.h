#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "support/RawEnum.h"

namespace vantrelle {

// The outcome of one calculator line.
struct CalcResult {
    enum class Kind { number, percent, unit, currency, error };
    static constexpr std::array<std::string_view, 5> kindRawNames{"number", "percent", "unit", "currency",
                                                                  "error"};

    std::string display;                // the main answer
    std::optional<std::string> detail;  // a second line that explains it
    std::optional<double> value;        // kept as the next line's "ans"
    Kind kind = Kind::number;

    [[nodiscard]] bool isError() const { return kind == Kind::error; }
    bool operator==(const CalcResult&) const = default;
};

}  // namespace vantrelle
