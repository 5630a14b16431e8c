#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace vantrelle {

// Internet date-times such as "2026-03-07T09:10:11.250Z" or "2026-03-07T10:10:11+01:00", with or
// without fractional seconds. Fractions keep millisecond precision. Anything else gives no date.
[[nodiscard]] std::optional<Date> parseIsoDate(std::string_view text);

// "2026-03-07T09:10:11.250Z", in UTC with milliseconds.
[[nodiscard]] std::string formatIsoDate(Date date);

}  // namespace vantrelle
