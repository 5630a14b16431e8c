#include "shortcuts/X11HotKeys.h"

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <cstdlib>
#include <memory>

#include "shortcuts/KeyTable.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

constexpr xcb_keysym_t kNumLockSym = 0xff7f;

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

}  // namespace

X11HotKeys::X11HotKeys(XConnection& connection) : m_connection(connection) {
    if (m_connection.isOpen()) m_symbols = xcb_key_symbols_alloc(m_connection.get());
}

X11HotKeys::~X11HotKeys() {
    for (const auto& [id, grab] : m_grabs) ungrab(grab);
    if (m_connection.isOpen()) xcb_flush(m_connection.get());
    if (m_listening) m_connection.removeListener(*this);
    if (m_symbols) xcb_key_symbols_free(m_symbols);
}

void X11HotKeys::install(Handler handler) {
    m_handler = std::move(handler);
    if (!m_listening && m_connection.isOpen()) {
        m_connection.addListener(*this);
        m_listening = true;
    }
}

std::uint16_t X11HotKeys::numLockMask() const {
    // The modifier that Num_Lock's key sits on; Mod2 on nearly every keymap.
    auto* connection = m_connection.get();
    Reply<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr),
        &std::free);
    Reply<xcb_keycode_t> numLock(xcb_key_symbols_get_keycode(m_symbols, kNumLockSym), &std::free);
    if (!mapping || !numLock || *numLock == XCB_NO_SYMBOL) return XModifier::mod2;
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int perModifier = mapping->keycodes_per_modifier;
    for (int modifier = 0; modifier < 8; ++modifier) {
        for (int i = 0; i < perModifier; ++i) {
            if (codes[modifier * perModifier + i] == *numLock)
                return static_cast<std::uint16_t>(1U << modifier);
        }
    }
    return XModifier::mod2;
}

int X11HotKeys::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) {
    if (!m_connection.isOpen() || !m_symbols) return kNoDisplay;
    const auto key = keyByCode(keyCode);
    if (!key) return kNoSuchKey;
    Reply<xcb_keycode_t> keycodes(xcb_key_symbols_get_keycode(m_symbols, key->keysym), &std::free);
    if (!keycodes || *keycodes == XCB_NO_SYMBOL) return kNoSuchKey;

    auto* connection = m_connection.get();
    const Grab grab{*keycodes, xModifiers(modifiers)};
    const auto variants = lockVariants(grab.modifiers, numLockMask());
    std::array<xcb_void_cookie_t, 4> cookies{};
    for (std::size_t i = 0; i < variants.size(); ++i) {
        cookies[i] = xcb_grab_key_checked(connection, 0, m_connection.root(), variants[i], grab.keycode,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    }
    int status = 0;
    for (const auto& cookie : cookies) {
        Reply<xcb_generic_error_t> error(xcb_request_check(connection, cookie), &std::free);
        if (error && status == 0) status = error->error_code;  // BadAccess (10): another client holds it
    }
    if (status != 0) {
        // Keep none of the variants that did go through: the combo works in every lock state or not at all.
        ungrab(grab);
        xcb_flush(connection);
        return status;
    }
    m_grabs[id] = grab;
    return 0;
}

void X11HotKeys::unregisterHotKey(std::uint32_t id) {
    const auto found = m_grabs.find(id);
    if (found == m_grabs.end()) return;
    ungrab(found->second);
    m_grabs.erase(found);
    xcb_flush(m_connection.get());
}

void X11HotKeys::ungrab(const Grab& grab) {
    if (!m_connection.isOpen()) return;
    for (const auto variant : lockVariants(grab.modifiers, numLockMask()))
        xcb_ungrab_key(m_connection.get(), grab.keycode, m_connection.root(), variant);
}

void X11HotKeys::handleEvent(const void* event) {
    const auto* generic = static_cast<const xcb_generic_event_t*>(event);
    const auto type = generic->response_type & ~0x80;
    if (type == XCB_MAPPING_NOTIFY) {
        xcb_refresh_keyboard_mapping(m_symbols, const_cast<xcb_mapping_notify_event_t*>(
                                                    static_cast<const xcb_mapping_notify_event_t*>(event)));
        return;
    }
    if (type != XCB_KEY_PRESS) return;
    const auto* press = static_cast<const xcb_key_press_event_t*>(event);
    if (press->event != m_connection.root()) return;
    const auto held = static_cast<std::uint16_t>(
        press->state & (XModifier::shift | XModifier::control | XModifier::mod1 | XModifier::mod4));
    for (const auto& [id, grab] : m_grabs) {
        if (grab.keycode == press->detail && grab.modifiers == held) {
            if (m_handler) m_handler(id);
            return;
        }
    }
}

}  // namespace vantrelle
