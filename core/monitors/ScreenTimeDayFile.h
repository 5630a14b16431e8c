#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "monitors/AppUsage.h"

namespace vantrelle {

// One day of screen time: a JSON object from desktop id to {"name", "seconds", "bundlePath"?}.
using ScreenTimeDay = std::map<std::string, ScreenTimeEntry>;

[[nodiscard]] std::string encodeScreenTimeDay(const ScreenTimeDay& day);
// Nothing when the text isn't a JSON object; entries without a name or with negative or non-numeric
// seconds are skipped, the rest kept.
[[nodiscard]] std::optional<ScreenTimeDay> decodeScreenTimeDay(std::string_view text);

}  // namespace vantrelle
