#pragma once

#include <cstdint>
#include <functional>

namespace vantrelle {

// Desktop-wide key combinations that reach the program whatever window has the focus. Combos are given
// in the stored settings format (a virtual key code and a modifier mask, see shortcuts/KeyCombo.h);
// the adapter translates them to what its desktop understands.
class HotKeys {
public:
    using Handler = std::function<void(std::uint32_t id)>;

    virtual ~HotKeys() = default;
    // Where pressed combos go, by the id they were registered with; on the main thread.
    virtual void install(Handler handler) = 0;
    // Where refusals go that come after registerHotKey answered 0 (a desktop that asks the user
    // first); on the main thread. Desktops that answer at once never call it.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    virtual void installRefusals(Handler /*refused*/) {}
    // 0 when the combo now reaches us; any other status means the desktop refused it (another
    // program holds it, or the key doesn't exist on this keyboard).
    [[nodiscard]] virtual int registerHotKey(std::uint32_t id, std::uint32_t keyCode,
                                             std::uint32_t modifiers) = 0;
    virtual void unregisterHotKey(std::uint32_t id) = 0;
};

}  // namespace vantrelle
