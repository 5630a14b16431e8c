#pragma once

#include <functional>
#include <optional>

#include "overlay/Screen.h"

namespace vantrelle {

// The screens as Qt sees them, with a notch the user declared applied to the screen that holds it.
class QtScreenSource final : public ScreenSource {
public:
    // The declared notch in desktop pixels (y down), if any.
    explicit QtScreenSource(std::function<std::optional<Rect>()> declaredNotch)
        : m_declaredNotch(std::move(declaredNotch)) {}

    [[nodiscard]] std::vector<ScreenInfo> screens() const override;
    [[nodiscard]] std::optional<std::size_t> mainScreenIndex() const override;

private:
    std::function<std::optional<Rect>()> m_declaredNotch;
};

}  // namespace vantrelle
