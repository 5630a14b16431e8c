#include "overlay/NotchState.h"

#include <algorithm>
#include <atomic>

#include "catalog/AppSettings.h"

namespace vantrelle {

namespace {
std::atomic<double> g_expandedWidth{760};
}

Size NotchLayout::expandedSizeFor(double screenWidth) {
    // std::round rounds half away from zero.
    const double width = std::clamp(std::round(screenWidth * 0.66), 760.0, 1040.0);
    return {width, expandedHeight};
}

Size NotchLayout::expandedSize() {
    return {g_expandedWidth.load(), expandedHeight};
}

void NotchLayout::setExpandedSize(Size size) {
    g_expandedWidth = size.width;
}

void ensureValidTab(NotchState& state, const AppSettings& settings) {
    if (settings.isEnabled(state.tab())) return;
    const auto ordered = settings.orderedEnabledTabs();
    if (!ordered.empty()) state.setTab(ordered.front());
}

}  // namespace vantrelle
