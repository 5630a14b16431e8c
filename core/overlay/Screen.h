#pragma once

#include <optional>
#include <string>
#include <vector>

#include "overlay/Geometry.h"

namespace vantrelle {

// One display, as plain values in global points with y up.
struct ScreenInfo {
    std::string name;  // the output's name, e.g. "eDP-1"
    Rect frame;
    Rect visibleFrame;  // without the top bar and docks
    // The strips of top bar to the left and right of a camera notch; both present only on a notched display.
    std::optional<Rect> auxiliaryTopLeftArea;
    std::optional<Rect> auxiliaryTopRightArea;

    bool operator==(const ScreenInfo&) const = default;
};

// The displays, in the platform's order.
class ScreenSource {
public:
    virtual ~ScreenSource() = default;
    [[nodiscard]] virtual std::vector<ScreenInfo> screens() const = 0;
    // The display with the keyboard focus or the primary one; absent when there is none.
    [[nodiscard]] virtual std::optional<std::size_t> mainScreenIndex() const = 0;
};

}  // namespace vantrelle
