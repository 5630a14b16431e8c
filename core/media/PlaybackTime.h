#pragma once

#include <string>

namespace vantrelle {

// "m:ss", or "h:mm:ss" from an hour on; negative or unknown times read as 0:00.
[[nodiscard]] std::string formatPlaybackTime(double seconds);

}  // namespace vantrelle
