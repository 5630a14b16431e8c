#include "overlay/DeclaredNotch.h"

#include <array>
#include <charconv>

namespace vantrelle {

std::optional<Rect> parseDeclaredNotch(std::string_view text) {
    std::array<double, 4> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
        auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), values[i]);
        if (ec != std::errc()) return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(ptr - text.data()));
        while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
        if (i + 1 < values.size()) {
            if (text.empty() || text.front() != ',') return std::nullopt;
            text.remove_prefix(1);
        }
    }
    if (!text.empty() || values[2] <= 0 || values[3] <= 0) return std::nullopt;
    return Rect{values[0], values[1], values[2], values[3]};
}

void applyDeclaredNotch(std::vector<ScreenInfo>& screens, const Rect& notch) {
    for (auto& screen : screens) {
        const Rect& f = screen.frame;
        // The notch must hang from this screen's top edge and lie within its width.
        if (notch.maxY() != f.maxY() || notch.minX() < f.minX() || notch.maxX() > f.maxX()) continue;
        screen.auxiliaryTopLeftArea = Rect{f.minX(), notch.minY(), notch.minX() - f.minX(), notch.height};
        screen.auxiliaryTopRightArea =
            Rect{notch.maxX(), notch.minY(), f.maxX() - notch.maxX(), notch.height};
        return;
    }
}

}  // namespace vantrelle
