#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "overlay/Screen.h"

namespace vantrelle {

// A camera notch the user declares, for the rare laptop with one under Linux: "x,y,w,h" in desktop
// pixels with y down, as xrandr shows them. The screen that holds it gets the two strips of top bar
// beside it, and from those the notch is found like a detected one.
[[nodiscard]] std::optional<Rect> parseDeclaredNotch(std::string_view text);

// `notch` in the same global y-up points as the screens.
void applyDeclaredNotch(std::vector<ScreenInfo>& screens, const Rect& notch);

}  // namespace vantrelle
