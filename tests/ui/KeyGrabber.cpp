// A small X client for the shortcut test: grabs one key combination on the root window, as another
// program holding a global shortcut would, prints "grabbed" and keeps it until the test ends it.
// Usage: key_grabber <keysym, hex> <modifier mask>
#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: key_grabber <keysym, hex> <modifier mask>\n");
        return 2;
    }
    const auto keysym = static_cast<xcb_keysym_t>(std::stoul(argv[1], nullptr, 16));
    const auto modifiers = static_cast<std::uint16_t>(std::stoul(argv[2]));
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) return 1;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_key_symbols_t* symbols = xcb_key_symbols_alloc(connection);
    xcb_keycode_t* keycodes = xcb_key_symbols_get_keycode(symbols, keysym);
    if (!keycodes || *keycodes == XCB_NO_SYMBOL) return 1;
    const auto cookie = xcb_grab_key_checked(connection, 0, root, modifiers, *keycodes, XCB_GRAB_MODE_ASYNC,
                                             XCB_GRAB_MODE_ASYNC);
    if (xcb_generic_error_t* error = xcb_request_check(connection, cookie)) {
        std::free(error);
        return 1;
    }
    std::free(keycodes);
    std::printf("grabbed\n");
    std::fflush(stdout);
    while (xcb_generic_event_t* event = xcb_wait_for_event(connection)) std::free(event);
    xcb_key_symbols_free(symbols);
    xcb_disconnect(connection);
    return 0;
}
