#pragma once

#include <array>
#include <cstdint>
#include <map>

#include "platform/HotKeys.h"
#include "x11/XConnection.h"

struct _XCBKeySymbols;  // xcb_key_symbols_t, which xcb-keysyms declares as a typedef

namespace vantrelle {

// Global shortcuts as passive key grabs on the root window of the shared X connection. Each combo is
// grabbed four times, with and without Caps Lock and Num Lock, since the server matches modifiers
// exactly. A grab another client holds is refused with BadAccess, which is the status returned.
class X11HotKeys final : public HotKeys, private XConnection::Listener {
public:
    // The statuses besides X's own error codes.
    static constexpr int kNoDisplay = -1;
    static constexpr int kNoSuchKey = -2;

    explicit X11HotKeys(XConnection& connection);
    ~X11HotKeys() override;
    X11HotKeys(const X11HotKeys&) = delete;
    X11HotKeys& operator=(const X11HotKeys&) = delete;

    void install(Handler handler) override;
    int registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;

private:
    struct Grab {
        std::uint8_t keycode = 0;
        std::uint16_t modifiers = 0;  // without the lock bits
    };

    void handleEvent(const void* event) override;
    void ungrab(const Grab& grab);
    [[nodiscard]] std::uint16_t numLockMask() const;

    XConnection& m_connection;
    _XCBKeySymbols* m_symbols = nullptr;
    Handler m_handler;
    std::map<std::uint32_t, Grab> m_grabs;
    bool m_listening = false;
};

}  // namespace vantrelle
