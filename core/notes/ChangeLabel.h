#pragma once

#include <string>

#include "platform/Date.h"

namespace vantrelle {

// When a note was last changed, as the notes list shows it in the local calendar: "14:05" today,
// "Yesterday", the weekday within the last week ("Mon"), else "21 Nov", with the year when it isn't
// this year's ("21 Nov 2025"). A date after `now` (a clock set back) reads as today.
[[nodiscard]] std::string changeLabel(Date when, Date now);

}  // namespace vantrelle
