#include "toggles/ToggleTable.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <ctime>

namespace vantrelle {

namespace {

constexpr std::string_view kFileChooserGtk3 = "org.gtk.Settings.FileChooser";
constexpr std::string_view kFileChooserGtk4 = "org.gtk.gtk4.Settings.FileChooser";

std::string lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
    return text;
}

}  // namespace

ToggleTable::ToggleTable(const DesktopTools& tools, bool removableDisks) : m_disks(removableDisks) {
    const auto path = [&](std::string_view program) { return tools.find(program).value_or(""); };
    m_gsettings = path("gsettings");
    m_plasmaScheme = path("plasma-apply-colorscheme");
    m_wpctl = path("wpctl");
    m_pactl = path("pactl");
    m_gnomeScreenshot = path("gnome-screenshot");
    m_spectacle = path("spectacle");
    m_import = path("import");
    m_shell = path("sh");
    m_xclip = path("xclip");
    m_gio = path("gio");
    const bool kde = tools.desktop() == DesktopTools::Desktop::kde;

    // Plasma keeps its own colour schemes; gsettings there would change only GTK programs.
    if (!m_plasmaScheme.empty() && (kde || m_gsettings.empty()))
        m_dark = Dark::kde;
    else if (!m_gsettings.empty())
        m_dark = Dark::gnome;

    if (!m_wpctl.empty())
        m_mute = Mute::wpctl;
    else if (!m_pactl.empty())
        m_mute = Mute::pactl;

    // The desktop's own tool first, then the other desktop's, then ImageMagick.
    const bool gnomeShot = !m_gnomeScreenshot.empty();
    const bool spectacle = !m_spectacle.empty();
    if (spectacle && (kde || !gnomeShot))
        m_shotToFile = Shot::spectacle;
    else if (gnomeShot)
        m_shotToFile = Shot::gnome;
    else if (!m_import.empty())
        m_shotToFile = Shot::import;
    m_shotToClipboard = m_shotToFile;
    // import writes only files; the clipboard needs xclip and a shell for the pipe between them.
    if (m_shotToClipboard == Shot::import && (m_xclip.empty() || m_shell.empty()))
        m_shotToClipboard = Shot::none;

    if (auto inhibit = tools.find("systemd-inhibit"); inhibit && tools.has("sleep")) {
        m_keepAwake = ToggleCommand{*inhibit,
                                    {"--what=idle:sleep", "--who=Vantrelle", "--why=Keep awake is on",
                                     "--mode=block", *tools.find("sleep"), "infinity"}};
    }
    if (auto xset = tools.find("xset")) m_sleepDisplay = ToggleCommand{*xset, {"dpms", "force", "off"}};
    if (auto loginctl = tools.find("loginctl")) m_lock = ToggleCommand{*loginctl, {"lock-session"}};
}

std::optional<std::string> ToggleTable::missingReason(QuickToggle toggle) const {
    switch (toggle) {
        case QuickToggle::darkMode:
            if (m_dark != Dark::none) return std::nullopt;
            return "Needs gsettings (GNOME) or plasma-apply-colorscheme (KDE Plasma).";
        case QuickToggle::keepAwake:
            if (m_keepAwake) return std::nullopt;
            return "Needs systemd-inhibit.";
        case QuickToggle::mute:
            if (m_mute != Mute::none) return std::nullopt;
            return "Needs wpctl (PipeWire) or pactl (PulseAudio).";
        case QuickToggle::screenshot:
            if (m_shotToClipboard != Shot::none) return std::nullopt;
            return "Needs gnome-screenshot, spectacle, or ImageMagick's import with xclip.";
        case QuickToggle::screenshotToFile:
            if (m_shotToFile != Shot::none) return std::nullopt;
            return "Needs gnome-screenshot, spectacle, or ImageMagick's import.";
        case QuickToggle::sleepDisplay:
            if (m_sleepDisplay) return std::nullopt;
            return "Needs xset (X11 display power).";
        case QuickToggle::lockScreen:
            if (m_lock || m_sleepDisplay) return std::nullopt;
            return "Needs loginctl (systemd-logind).";
        case QuickToggle::hideDesktopIcons:
            return "This desktop has no desktop icons to hide from here.";
        case QuickToggle::showHiddenFiles:
            if (!m_gsettings.empty()) return std::nullopt;
            return "Needs gsettings (GTK file chooser settings).";
        case QuickToggle::dockAutohide:
            return "This desktop's panel can't be set to hide from here.";
        case QuickToggle::ejectDisks:
            if (m_disks) return std::nullopt;
            return "Needs UDisks2 on the system bus.";
        case QuickToggle::emptyTrash:
            if (!m_gio.empty()) return std::nullopt;
            return "Needs gio (GLib).";
    }
    return "Unknown toggle.";
}

std::vector<ToggleCommand> ToggleTable::commands(QuickToggle toggle, bool isOn, Date now,
                                                 const std::filesystem::path& home) const {
    if (!available(toggle)) return {};
    switch (toggle) {
        case QuickToggle::darkMode:
            if (m_dark == Dark::kde) return {{m_plasmaScheme, {isOn ? "BreezeLight" : "BreezeDark"}}};
            return {
                {m_gsettings,
                 {"set", "org.gnome.desktop.interface", "color-scheme", isOn ? "default" : "prefer-dark"}}};
        case QuickToggle::mute:
            if (m_mute == Mute::wpctl) return {{m_wpctl, {"set-mute", "@DEFAULT_AUDIO_SINK@", "toggle"}}};
            return {{m_pactl, {"set-sink-mute", "@DEFAULT_SINK@", "toggle"}}};
        case QuickToggle::screenshot:
            switch (m_shotToClipboard) {
                case Shot::gnome:
                    return {{m_gnomeScreenshot, {"--area", "--clipboard"}}};
                case Shot::spectacle:
                    return {{m_spectacle, {"--background", "--nonotify", "--region", "--clipboard"}}};
                case Shot::import:
                    return {{m_shell,
                             {"-c", "\"$0\" png:- | \"$1\" -selection clipboard -t image/png", m_import,
                              m_xclip}}};
                case Shot::none:
                    return {};
            }
            return {};
        case QuickToggle::screenshotToFile: {
            const std::string file = screenshotFile(home, now).string();
            switch (m_shotToFile) {
                case Shot::gnome:
                    return {{m_gnomeScreenshot, {"--area", "--file=" + file}}};
                case Shot::spectacle:
                    return {{m_spectacle, {"--background", "--nonotify", "--region", "--output", file}}};
                case Shot::import:
                    return {{m_import, {file}}};
                case Shot::none:
                    return {};
            }
            return {};
        }
        case QuickToggle::sleepDisplay:
            return {*m_sleepDisplay};
        case QuickToggle::lockScreen:
            return {m_lock ? *m_lock : *m_sleepDisplay};
        case QuickToggle::showHiddenFiles: {
            const std::string value = isOn ? "false" : "true";
            return {{m_gsettings, {"set", std::string(kFileChooserGtk3), "show-hidden", value}},
                    {m_gsettings, {"set", std::string(kFileChooserGtk4), "show-hidden", value}}};
        }
        case QuickToggle::emptyTrash:
            return {{m_gio, {"trash", "--empty"}}};
        case QuickToggle::keepAwake:
        case QuickToggle::ejectDisks:
        case QuickToggle::hideDesktopIcons:
        case QuickToggle::dockAutohide:
            return {};
    }
    return {};
}

std::optional<ToggleCommand> ToggleTable::stateQuery(QuickToggle toggle) const {
    switch (toggle) {
        case QuickToggle::darkMode:
            if (m_dark == Dark::kde) return ToggleCommand{m_plasmaScheme, {"--list-schemes"}};
            if (m_dark == Dark::gnome)
                return ToggleCommand{m_gsettings, {"get", "org.gnome.desktop.interface", "color-scheme"}};
            return std::nullopt;
        case QuickToggle::mute:
            if (m_mute == Mute::wpctl) return ToggleCommand{m_wpctl, {"get-volume", "@DEFAULT_AUDIO_SINK@"}};
            if (m_mute == Mute::pactl) return ToggleCommand{m_pactl, {"get-sink-mute", "@DEFAULT_SINK@"}};
            return std::nullopt;
        case QuickToggle::showHiddenFiles:
            if (m_gsettings.empty()) return std::nullopt;
            return ToggleCommand{m_gsettings, {"get", std::string(kFileChooserGtk3), "show-hidden"}};
        default:
            return std::nullopt;
    }
}

std::optional<bool> ToggleTable::parseState(QuickToggle toggle, std::string_view reply) const {
    const std::string text = lower(reply);
    switch (toggle) {
        case QuickToggle::darkMode:
            if (m_dark == Dark::kde) {
                // The current scheme's line is marked "(current color scheme)".
                std::size_t start = 0;
                while (start < text.size()) {
                    const std::size_t end = std::min(text.find('\n', start), text.size());
                    const std::string_view line(text.data() + start, end - start);
                    if (line.find("current") != std::string_view::npos)
                        return line.find("dark") != std::string_view::npos;
                    start = end + 1;
                }
                return std::nullopt;
            }
            if (trimmed(text).empty()) return std::nullopt;
            return text.find("prefer-dark") != std::string::npos;
        case QuickToggle::mute:
            if (m_mute == Mute::wpctl) {
                if (text.find("volume:") == std::string::npos) return std::nullopt;
                return text.find("[muted]") != std::string::npos;
            }
            if (trimmed(text) == "mute: yes") return true;
            if (trimmed(text) == "mute: no") return false;
            return std::nullopt;
        case QuickToggle::showHiddenFiles:
            if (trimmed(text) == "true") return true;
            if (trimmed(text) == "false") return false;
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

std::filesystem::path ToggleTable::screenshotFile(const std::filesystem::path& home, Date now) {
    const auto seconds = static_cast<std::time_t>(std::floor(now.seconds));
    std::tm local{};
    localtime_r(&seconds, &local);
    char stamp[64];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d at %H.%M.%S", &local);
    return home / "Desktop" / (std::string("Screenshot ") + stamp + ".png");
}

}  // namespace vantrelle
