#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrelle {

// Desktop ids ("firefox", "org.gnome.Nautilus") of the desktop's pinned applications, in their order.
// Both readers skip what they can't read and never fail: garbage gives an empty list.

// The output of `gsettings get org.gnome.shell favorite-apps`: a string array in GVariant text form,
// "['firefox.desktop', 'org.gnome.Nautilus.desktop']" or "@as []".
[[nodiscard]] std::vector<std::string> parseGnomeFavorites(std::string_view text);

// plasma-org.kde.plasma.desktop-appletsrc: the `launchers=` lines of the task managers, comma-separated
// "applications:<id>.desktop" items; other kinds of item (files, "preferred://browser") are skipped.
// The first task manager with launchers wins; ids are not repeated.
[[nodiscard]] std::vector<std::string> parseKdeLaunchers(std::string_view text);

// "firefox.desktop" -> "firefox"; nothing for a name that isn't a plain .desktop file name.
[[nodiscard]] std::string desktopIdOf(std::string_view fileName);

}  // namespace vantrelle
