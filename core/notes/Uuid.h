#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

namespace Uuid {

// A random (version 4) UUID in the upper-case 8-4-4-4-12 form the stores keep.
[[nodiscard]] std::string make();
// The upper-case form of a UUID in either case; nothing for text of another shape.
[[nodiscard]] std::optional<std::string> normalized(std::string_view text);

}  // namespace Uuid

}  // namespace vantrelle
