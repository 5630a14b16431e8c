#pragma once

#include <string_view>

#include "catalog/QuickToggle.h"

namespace vantrelle {

// The icon of each toggle, by symbol name.
[[nodiscard]] constexpr std::string_view toggleSymbol(QuickToggle toggle) {
    switch (toggle) {
        case QuickToggle::darkMode:
            return "moon.fill";
        case QuickToggle::keepAwake:
            return "cup.and.saucer.fill";
        case QuickToggle::mute:
            return "speaker.slash.fill";
        case QuickToggle::screenshot:
            return "camera.viewfinder";
        case QuickToggle::screenshotToFile:
            return "photo.badge.arrow.down.fill";
        case QuickToggle::sleepDisplay:
            return "display";
        case QuickToggle::lockScreen:
            return "lock.fill";
        case QuickToggle::hideDesktopIcons:
            return "menubar.dock.rectangle";
        case QuickToggle::showHiddenFiles:
            return "eye.fill";
        case QuickToggle::dockAutohide:
            return "dock.rectangle";
        case QuickToggle::ejectDisks:
            return "eject.fill";
        case QuickToggle::emptyTrash:
            return "trash.fill";
    }
    return "questionmark";
}

}  // namespace vantrelle
