#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/DefaultsStore.h"

namespace vantrelle {

[[nodiscard]] std::string base64Encode(const Bytes& bytes);
// Standard alphabet with padding; nothing for malformed input.
[[nodiscard]] std::optional<Bytes> base64Decode(std::string_view text);

}  // namespace vantrelle
