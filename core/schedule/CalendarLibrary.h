#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "schedule/CalendarEvent.h"
#include "schedule/IcsDocument.h"

namespace vantrelle {

// The user's iCalendar files, found under a list of folders (a vdir per calendar as vdirsyncer and
// khal keep them, Evolution's calendar.ics files, or any folder of .ics files). Each file is parsed
// once and kept until its size or modification time changes, so a refresh over unchanged folders costs
// one directory walk and reads no file. A file that can't be parsed is logged once per change and left
// out; the others still count. Not thread-safe: one owner calls it.
class CalendarLibrary {
public:
    CalendarLibrary() = default;
    CalendarLibrary(std::vector<std::filesystem::path> folders, std::vector<std::string> userAddresses);

    void setFolders(std::vector<std::filesystem::path> folders);
    // Addresses as the user wrote them; compared without case and without "mailto:".
    void setUserAddresses(const std::vector<std::string>& addresses);
    [[nodiscard]] const std::vector<std::filesystem::path>& folders() const { return m_folders; }

    // Walks the folders and (re)parses what changed; forgets files that are gone. True if anything
    // was added, changed or removed.
    bool refresh();

    // Any calendar file found, readable or not.
    [[nodiscard]] bool hasSources() const { return !m_files.empty(); }
    [[nodiscard]] std::size_t fileCount() const { return m_files.size(); }
    // Files parsed since construction: what the cache saved shows here.
    [[nodiscard]] std::uint64_t parseCount() const { return m_parses; }

    // Occurrences overlapping [from, to), in no particular order.
    [[nodiscard]] std::vector<CalendarEvent> events(Date from, Date to) const;
    [[nodiscard]] std::vector<CalendarTodo> todos(Date from, Date to) const;

private:
    // What a stat() says of a file: a change to any of these means the file must be read again. The
    // inode catches a same-sized file renamed over the old one within one clock tick.
    struct Stamp {
        std::int64_t modifiedNs = 0;
        std::int64_t size = 0;
        std::uint64_t inode = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct Entry {
        Stamp stamp;
        std::string calendar;
        std::unique_ptr<IcsDocument> document;  // none for a file that couldn't be read
    };

    void load(const std::filesystem::path& file, Entry& entry);
    [[nodiscard]] EventReading readingFor(const std::filesystem::path& file, const Entry& entry) const;

    std::vector<std::filesystem::path> m_folders;
    std::vector<std::string> m_userAddresses;
    std::map<std::filesystem::path, Entry> m_files;
    std::uint64_t m_parses = 0;
};

// The folders read when the user named none: $XDG_DATA_HOME/calendars (vdirsyncer, khal) and
// $XDG_DATA_HOME/evolution/calendar (Evolution's <id>/calendar.ics).
[[nodiscard]] std::vector<std::filesystem::path> defaultCalendarFolders(
    const std::filesystem::path& dataHome);

}  // namespace vantrelle
