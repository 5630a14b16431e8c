#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalog/QuickToggle.h"
#include "platform/Date.h"
#include "toggles/DesktopTools.h"

namespace vantrelle {

struct ToggleCommand {
    std::string program;  // a full path, as found on PATH
    std::vector<std::string> arguments;

    bool operator==(const ToggleCommand&) const = default;
};

// How each quick toggle is done on this desktop, decided once from the tools it has. A toggle whose
// tools are missing is unavailable and says why.
class ToggleTable {
public:
    ToggleTable(const DesktopTools& tools, bool removableDisks);

    [[nodiscard]] bool available(QuickToggle toggle) const { return !missingReason(toggle).has_value(); }
    // Why this desktop can't do `toggle`, for the settings page; nothing when it can.
    [[nodiscard]] std::optional<std::string> missingReason(QuickToggle toggle) const;

    // The programs that perform a toggle, run in order and not waited for; `isOn` is its state now.
    // Empty for keep awake and eject, which are not one-off commands, and for unavailable toggles.
    [[nodiscard]] std::vector<ToggleCommand> commands(QuickToggle toggle, bool isOn, Date now,
                                                      const std::filesystem::path& home) const;
    // The child that holds off idle and sleep until it is ended.
    [[nodiscard]] std::optional<ToggleCommand> keepAwakeCommand() const { return m_keepAwake; }
    // Lock without loginctl falls back to display sleep.
    [[nodiscard]] bool lockFallsBack() const { return !m_lock && m_sleepDisplay; }

    // The read-only command that tells a state toggle's state, and how to read its reply. Nothing
    // where the desktop doesn't tell.
    [[nodiscard]] std::optional<ToggleCommand> stateQuery(QuickToggle toggle) const;
    [[nodiscard]] std::optional<bool> parseState(QuickToggle toggle, std::string_view reply) const;

    // "Screenshot 2026-11-25 at 14.05.09.png" under the home folder's Desktop.
    [[nodiscard]] static std::filesystem::path screenshotFile(const std::filesystem::path& home, Date now);

private:
    enum class Dark { none, gnome, kde };
    enum class Mute { none, wpctl, pactl };
    enum class Shot { none, gnome, spectacle, import };

    Dark m_dark = Dark::none;
    Mute m_mute = Mute::none;
    Shot m_shotToClipboard = Shot::none;
    Shot m_shotToFile = Shot::none;
    std::string m_gsettings, m_plasmaScheme, m_wpctl, m_pactl, m_gnomeScreenshot, m_spectacle, m_import,
        m_shell, m_xclip, m_gio;
    std::optional<ToggleCommand> m_keepAwake;
    std::optional<ToggleCommand> m_sleepDisplay;
    std::optional<ToggleCommand> m_lock;
    bool m_disks = false;
};

}  // namespace vantrelle
