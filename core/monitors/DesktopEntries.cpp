#include "monitors/DesktopEntries.h"

#include <algorithm>
#include <cctype>

namespace vantrelle {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
    return text;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

std::string_view fileName(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

// The program of an Exec line: the first word that isn't "env" or an environment assignment.
std::string programOf(std::string_view exec) {
    while (!exec.empty()) {
        exec = trimmed(exec);
        std::string word;
        if (!exec.empty() && exec.front() == '"') {
            const std::size_t close = exec.find('"', 1);
            word = std::string(exec.substr(1, close == std::string_view::npos ? exec.npos : close - 1));
            exec.remove_prefix(close == std::string_view::npos ? exec.size() : close + 1);
        } else {
            const std::size_t end = exec.find(' ');
            word = std::string(exec.substr(0, end));
            exec.remove_prefix(end == std::string_view::npos ? exec.size() : end);
        }
        if (word == "env" || (word.find('=') != std::string::npos && word.front() != '/')) continue;
        return word;
    }
    return {};
}

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view id, std::string_view text) {
    DesktopEntry entry;
    entry.id = std::string(id);
    bool inMainGroup = false;
    std::string exec, tryExec, type;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            inMainGroup = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inMainGroup || equals == std::string_view::npos) continue;
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::string_view value = trimmed(line.substr(equals + 1));
        if (key == "Name") entry.name = std::string(value);
        if (key == "Exec") exec = std::string(value);
        if (key == "TryExec") tryExec = std::string(value);
        if (key == "StartupWMClass") entry.wmClass = std::string(value);
        if (key == "Icon") entry.icon = std::string(value);
        if (key == "Type") type = std::string(value);
        if (key == "Hidden" && value == "true") return std::nullopt;  // deleted by the user
    }
    if (type != "Application" || entry.name.empty()) return std::nullopt;
    entry.program = programOf(exec.empty() ? tryExec : exec);
    return entry;
}

const DesktopEntry* matchDesktopEntry(const std::vector<DesktopEntry>& entries, std::string_view executable,
                                      std::string_view windowClass) {
    if (!executable.empty()) {
        for (const DesktopEntry& entry : entries) {
            if (executable == entry.resolved || executable == entry.program) return &entry;
        }
        const std::string_view base = fileName(executable);
        for (const DesktopEntry& entry : entries) {
            if (!entry.program.empty() && fileName(entry.program) == base) return &entry;
        }
    }
    if (!windowClass.empty()) {
        for (const DesktopEntry& entry : entries) {
            if (!entry.wmClass.empty() && equalsIgnoringCase(entry.wmClass, windowClass)) return &entry;
        }
        for (const DesktopEntry& entry : entries) {
            const std::size_t dot = entry.id.rfind('.');
            const std::string_view last = dot == std::string::npos
                                              ? std::string_view(entry.id)
                                              : std::string_view(entry.id).substr(dot + 1);
            if (equalsIgnoringCase(last, windowClass) || equalsIgnoringCase(entry.id, windowClass))
                return &entry;
        }
    }
    return nullptr;
}

}  // namespace vantrelle
