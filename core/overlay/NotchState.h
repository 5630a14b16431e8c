#pragma once

#include <functional>
#include <optional>
#include <string>

#include "catalog/NotchTab.h"
#include "overlay/Geometry.h"
#include "support/Signal.h"

namespace vantrelle {

// The open panel's content size: width is 0.66 of the screen, rounded, kept within 760...1040.
struct NotchLayout {
    static constexpr double expandedHeight = 340;
    [[nodiscard]] static Size expandedSizeFor(double screenWidth);

    // The process-wide value the views read; rebuild() keeps it equal to NotchState::panelSize.
    [[nodiscard]] static Size expandedSize();
    static void setExpandedSize(Size size);
};

// The shared view state through which the overlay and the views speak. Main thread only.
class NotchState {
public:
    using Tab = NotchTab;

    enum class Field { isExpanded, notchSize, panelSize, isSimulated, tab, headerSubtitle };

    [[nodiscard]] bool isExpanded() const { return m_isExpanded; }
    [[nodiscard]] Size notchSize() const { return m_notchSize; }
    [[nodiscard]] Size panelSize() const { return m_panelSize; }
    [[nodiscard]] bool isSimulated() const { return m_isSimulated; }
    [[nodiscard]] Tab tab() const { return m_tab; }
    [[nodiscard]] const std::optional<std::string>& headerSubtitle() const { return m_headerSubtitle; }

    void setExpanded(bool expanded) { assign(m_isExpanded, expanded, Field::isExpanded); }
    void setNotchSize(Size size) { assign(m_notchSize, size, Field::notchSize); }
    void setPanelSize(Size size) { assign(m_panelSize, size, Field::panelSize); }
    void setSimulated(bool simulated) { assign(m_isSimulated, simulated, Field::isSimulated); }
    void setTab(Tab tab) { assign(m_tab, tab, Field::tab); }
    void setHeaderSubtitle(std::optional<std::string> subtitle) {
        assign(m_headerSubtitle, std::move(subtitle), Field::headerSubtitle);
    }

    // Closes the panel; rebuild() points it at the overlay, until then it does nothing.
    void collapse() const {
        if (m_collapse) m_collapse();
    }
    void setCollapse(std::function<void()> collapse) { m_collapse = std::move(collapse); }

    Signal<Field> changed;

private:
    template <typename T, typename U>
    void assign(T& field, U&& value, Field which) {
        if (field == value) return;
        field = std::forward<U>(value);
        changed.emit(which);
    }

    bool m_isExpanded = false;
    Size m_notchSize{185, 32};
    Size m_panelSize = NotchLayout::expandedSize();
    bool m_isSimulated = false;
    Tab m_tab = Tab::dashboard;
    std::optional<std::string> m_headerSubtitle;
    std::function<void()> m_collapse;
};

class AppSettings;

// When the panel comes up or the enabled tools change: a disabled tool gives way to the first enabled one.
void ensureValidTab(NotchState& state, const AppSettings& settings);

}  // namespace vantrelle
