#include "XdgAutostart.h"

#include "support/AtomicFile.h"
#include "support/DebugLog.h"

namespace vantrelle {

bool XdgAutostart::isEnabled() const {
    std::error_code error;
    return std::filesystem::is_regular_file(m_entry, error);
}

bool XdgAutostart::setEnabled(bool enabled) {
    if (!enabled) {
        std::error_code error;
        std::filesystem::remove(m_entry, error);
        return !error;
    }
    // Exec quoting: a path with spaces must be quoted, and quotes and backslashes escaped inside.
    std::string exec = "\"";
    for (char c : m_executable.string()) {
        if (c == '"' || c == '\\' || c == '`' || c == '$') exec += '\\';
        exec += c;
    }
    exec += '"';
    const std::string contents =
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Name=Vantrelle\n"
        "Comment=A notch dashboard for people who work with AI coding agents\n"
        "Exec=" +
        exec +
        "\n"
        "Icon=vantrelle\n"
        "Terminal=false\n"
        "NoDisplay=true\n"
        "X-GNOME-Autostart-enabled=true\n";
    const WriteResult written = writeFileAtomically(m_entry, contents);
    if (!written) DebugLog::write([&] { return "login item: " + written.error(); });
    return written.ok();
}

}  // namespace vantrelle
