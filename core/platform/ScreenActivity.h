#pragma once

#include <optional>
#include <string>

namespace vantrelle {

// The application in front of the user.
struct FrontmostApp {
    std::string id;    // desktop id ("org.gnome.Terminal"), or the window class where no entry matched
    std::string name;  // what the user calls it
    std::string path;  // the program file, empty when unknown
    bool operator==(const FrontmostApp&) const = default;
};

// What the desktop says about the user's presence, asked on demand. Lock, unlock, sleep, wake and
// application switches arrive as events through the tracker's own setters.
class ScreenActivity {
public:
    virtual ~ScreenActivity() = default;
    // Nothing when no window has the focus, or when it is our own.
    [[nodiscard]] virtual std::optional<FrontmostApp> frontmost() = 0;
    // Seconds since the last keyboard or pointer input; 0 where the system can't tell.
    [[nodiscard]] virtual double idleSeconds() = 0;
};

}  // namespace vantrelle
