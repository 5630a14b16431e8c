#pragma once

#include <cstdint>
#include <string>

namespace vantrelle {

// The text forms of every usage figure.
namespace AIFormat {

// "999", "1.0k", "1.00M", "1.00B".
[[nodiscard]] std::string tokens(std::int64_t n);
// "59m 59s" below an hour, "1h 00m" from an hour on.
[[nodiscard]] std::string duration(double seconds);
// "0m", "1h 1m".
[[nodiscard]] std::string remaining(double seconds);

}  // namespace AIFormat

}  // namespace vantrelle
