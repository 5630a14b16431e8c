#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DefaultsStore.h"
#include "support/Signal.h"

namespace vantrelle {

// The calendar folders and the user's own addresses as the settings window edits them, kept in the
// defaults under CalendarSettings' keys. Each change is stored at once and announced on `changed`.
class CalendarPreferences {
public:
    struct Folder {
        std::filesystem::path path;
        bool added = false;  // the user's own: only these can be removed
        bool found = false;  // a folder is there now
        bool operator==(const Folder&) const = default;
    };

    CalendarPreferences(DefaultsStore& defaults, std::filesystem::path dataHome);

    // The default folders, then the added ones, as the calendars are read from them.
    [[nodiscard]] std::vector<Folder> folders() const;
    [[nodiscard]] std::vector<std::filesystem::path> folderPaths() const;
    [[nodiscard]] std::vector<std::string> addresses() const;
    // "a@example.com, b@example.com"
    [[nodiscard]] std::string addressesText() const;

    // False for an empty or relative path and for a folder already listed.
    bool addFolder(const std::filesystem::path& folder);
    // False for a default folder and for one not listed.
    bool removeFolder(const std::filesystem::path& folder);
    // Takes the addresses as typed: split at commas, semicolons and white space, "mailto:" dropped,
    // repeats (in any case) kept once. Nothing changes, and nothing is announced, for the same list.
    void setAddresses(std::string_view text);

    // Splits an address text the way setAddresses does.
    [[nodiscard]] static std::vector<std::string> parseAddresses(std::string_view text);

    Signal<> changed;

private:
    [[nodiscard]] std::vector<std::string> addedFolders() const;
    void storeAdded(const std::vector<std::string>& folders);

    DefaultsStore& m_defaults;
    std::filesystem::path m_dataHome;
};

}  // namespace vantrelle
