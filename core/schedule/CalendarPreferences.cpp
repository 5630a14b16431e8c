#include "schedule/CalendarPreferences.h"

#include <algorithm>
#include <cctype>
#include <system_error>

#include "schedule/CalendarLibrary.h"
#include "schedule/CalendarSettings.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// "/a/b/" and "/a/./b" name the folder "/a/b" does.
fs::path tidy(const fs::path& folder) {
    fs::path normal = folder.lexically_normal();
    if (!normal.has_filename() && normal.has_parent_path() && normal != normal.root_path())
        normal = normal.parent_path();
    return normal;
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

}  // namespace

CalendarPreferences::CalendarPreferences(DefaultsStore& defaults, fs::path dataHome)
    : m_defaults(defaults), m_dataHome(std::move(dataHome)) {}

std::vector<CalendarPreferences::Folder> CalendarPreferences::folders() const {
    const auto defaults = defaultCalendarFolders(m_dataHome);
    std::vector<Folder> result;
    for (const auto& path : folderPaths()) {
        std::error_code error;
        const bool isDefault = std::find(defaults.begin(), defaults.end(), path) != defaults.end();
        result.push_back({path, !isDefault, fs::is_directory(path, error)});
    }
    return result;
}

std::vector<fs::path> CalendarPreferences::folderPaths() const {
    return CalendarSettings::folders(m_defaults, m_dataHome);
}

std::vector<std::string> CalendarPreferences::addresses() const {
    return CalendarSettings::userAddresses(m_defaults);
}

std::string CalendarPreferences::addressesText() const {
    std::string text;
    for (const auto& address : addresses()) {
        if (!text.empty()) text += ", ";
        text += address;
    }
    return text;
}

bool CalendarPreferences::addFolder(const fs::path& folder) {
    if (folder.empty() || folder.is_relative()) return false;
    const fs::path path = tidy(folder);
    const auto listed = folderPaths();
    if (std::find(listed.begin(), listed.end(), path) != listed.end()) return false;
    auto added = addedFolders();
    added.push_back(path.string());
    storeAdded(added);
    DebugLog::write([&] { return "calendar: added folder " + path.string(); });
    changed.emit();
    return true;
}

bool CalendarPreferences::removeFolder(const fs::path& folder) {
    const std::string path = tidy(folder).string();
    auto added = addedFolders();
    const auto before = added.size();
    std::erase_if(added, [&](const std::string& each) { return tidy(each).string() == path; });
    if (added.size() == before) return false;
    storeAdded(added);
    DebugLog::write([&] { return "calendar: removed folder " + path; });
    changed.emit();
    return true;
}

void CalendarPreferences::setAddresses(std::string_view text) {
    auto next = parseAddresses(text);
    if (next == addresses()) return;
    m_defaults.set(CalendarSettings::kAddressesKey, next);
    DebugLog::write([&] { return "calendar: " + std::to_string(next.size()) + " own addresses"; });
    changed.emit();
}

std::vector<std::string> CalendarPreferences::parseAddresses(std::string_view text) {
    std::vector<std::string> result;
    std::vector<std::string> seen;
    std::string word;
    auto finish = [&] {
        if (lowered(word).rfind("mailto:", 0) == 0) word.erase(0, 7);
        if (!word.empty() && std::find(seen.begin(), seen.end(), lowered(word)) == seen.end()) {
            seen.push_back(lowered(word));
            result.push_back(word);
        }
        word.clear();
    };
    for (char c : text) {
        if (c == ',' || c == ';' || std::isspace(static_cast<unsigned char>(c))) {
            finish();
        } else {
            word += c;
        }
    }
    finish();
    return result;
}

std::vector<std::string> CalendarPreferences::addedFolders() const {
    return m_defaults.stringArray(CalendarSettings::kFoldersKey).value_or(std::vector<std::string>{});
}

void CalendarPreferences::storeAdded(const std::vector<std::string>& folders) {
    m_defaults.set(CalendarSettings::kFoldersKey, folders);
}

}  // namespace vantrelle
