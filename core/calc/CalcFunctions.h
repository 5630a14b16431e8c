#pragma once

#include <optional>
#include <string_view>

namespace vantrelle {

// The named functions of one argument. Angles are in degrees, both in and out.
class CalcFunctions {
public:
    [[nodiscard]] static bool isFunction(std::string_view name);
    // Nothing for a name that isn't a function.
    [[nodiscard]] static std::optional<double> apply(std::string_view name, double x);
};

}  // namespace vantrelle
