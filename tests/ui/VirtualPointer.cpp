// A pointer device for a Wayland compositor started without input devices: it gives the seat its pointer
// and moves it as a mouse does, so clients get motion with relative motion, as from real hardware.
// Prints "ready" once the compositor has the device, then reads lines "move <x> <y>" until standard
// input closes, each a point of a <width>x<height> layout (the arguments).
#include <wayland-client.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

namespace {

struct Globals {
    wl_seat* seat = nullptr;
    zwlr_virtual_pointer_manager_v1* manager = nullptr;
};

void onGlobal(void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t) {
    auto* globals = static_cast<Globals*>(data);
    if (std::strcmp(interface, wl_seat_interface.name) == 0 && !globals->seat) {
        globals->seat = static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
    } else if (std::strcmp(interface, zwlr_virtual_pointer_manager_v1_interface.name) == 0) {
        globals->manager = static_cast<zwlr_virtual_pointer_manager_v1*>(
            wl_registry_bind(registry, name, &zwlr_virtual_pointer_manager_v1_interface, 1));
    }
}

void onGlobalRemoved(void*, wl_registry*, uint32_t) {}

const wl_registry_listener kRegistryListener = {onGlobal, onGlobalRemoved};

std::uint32_t nowMs() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const auto width = static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 10));
    const auto height = static_cast<std::uint32_t>(std::strtoul(argv[2], nullptr, 10));
    wl_display* display = wl_display_connect(nullptr);
    if (!display) return 1;
    Globals globals;
    wl_registry_add_listener(wl_display_get_registry(display), &kRegistryListener, &globals);
    wl_display_roundtrip(display);
    if (!globals.seat || !globals.manager) {
        std::fprintf(stderr, "virtual_pointer: the compositor offers no seat or no virtual pointers\n");
        return 1;
    }
    zwlr_virtual_pointer_v1* pointer =
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(globals.manager, globals.seat);
    wl_display_roundtrip(display);
    std::printf("ready\n");
    std::fflush(stdout);

    char line[128];
    while (std::fgets(line, sizeof line, stdin)) {
        unsigned x = 0;
        unsigned y = 0;
        if (std::sscanf(line, "move %u %u", &x, &y) != 2 || x >= width || y >= height) continue;
        zwlr_virtual_pointer_v1_motion_absolute(pointer, nowMs(), x, y, width, height);
        zwlr_virtual_pointer_v1_frame(pointer);
        if (wl_display_roundtrip(display) == -1) return 1;
    }
    return 0;
}
