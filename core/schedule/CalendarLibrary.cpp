#include "schedule/CalendarLibrary.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <system_error>

#include "support/DebugLog.h"
#include "support/ReadFile.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// vdirs are <root>/<calendar>/<item>.ics and Evolution's <root>/<id>/calendar.ics; one level more
// leaves room for a folder of vdirs, and the bound keeps a folder named by mistake (a home) cheap.
constexpr int kMaxDepth = 3;

bool isCalendarFile(const fs::path& path) {
    const std::string name = path.filename().string();
    if (name.empty() || name.front() == '.') return false;  // hidden, or a writer's temporary file
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".ics";
}

std::string normalizedAddress(std::string address) {
    std::transform(address.begin(), address.end(), address.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (address.rfind("mailto:", 0) == 0) address.erase(0, 7);
    while (!address.empty() && std::isspace(static_cast<unsigned char>(address.back()))) address.pop_back();
    while (!address.empty() && std::isspace(static_cast<unsigned char>(address.front()))) address.erase(0, 1);
    return address;
}

// vdirsyncer keeps the calendar's name in a "displayname" file beside the items.
std::string calendarNameFor(const fs::path& file, const IcsDocument* document) {
    if (document != nullptr) {
        if (auto name = document->calendarName(); !name.empty()) return name;
    }
    if (auto name = readWholeFile(file.parent_path() / "displayname")) {
        name->erase(std::find_if(name->begin(), name->end(), [](char c) { return c == '\n' || c == '\r'; }),
                    name->end());
        if (!name->empty()) return *name;
    }
    return file.parent_path().filename().string();
}

std::set<fs::path> calendarFilesUnder(const std::vector<fs::path>& folders) {
    std::set<fs::path> files;
    for (const auto& folder : folders) {
        std::error_code error;
        fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied, error);
        for (; !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
            if (it.depth() >= kMaxDepth) it.disable_recursion_pending();
            std::error_code typeError;
            if (isCalendarFile(it->path()) && it->is_regular_file(typeError)) files.insert(it->path());
        }
    }
    return files;
}

}  // namespace

CalendarLibrary::CalendarLibrary(std::vector<fs::path> folders, std::vector<std::string> userAddresses)
    : m_folders(std::move(folders)) {
    setUserAddresses(userAddresses);
}

void CalendarLibrary::setFolders(std::vector<fs::path> folders) {
    m_folders = std::move(folders);
}

void CalendarLibrary::setUserAddresses(const std::vector<std::string>& addresses) {
    m_userAddresses.clear();
    for (const auto& address : addresses) {
        if (auto normalized = normalizedAddress(address); !normalized.empty())
            m_userAddresses.push_back(normalized);
    }
}

bool CalendarLibrary::refresh() {
    const auto found = calendarFilesUnder(m_folders);
    bool changed = std::erase_if(m_files, [&](const auto& item) { return !found.contains(item.first); }) > 0;
    for (const auto& file : found) {
        struct stat info {};
        if (::stat(file.c_str(), &info) != 0) continue;
        const Stamp stamp{
            static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec,
            static_cast<std::int64_t>(info.st_size), static_cast<std::uint64_t>(info.st_ino)};
        auto [it, added] = m_files.try_emplace(file);
        if (!added && it->second.stamp == stamp) continue;
        it->second.stamp = stamp;
        load(file, it->second);
        changed = true;
    }
    return changed;
}

void CalendarLibrary::load(const fs::path& file, Entry& entry) {
    ++m_parses;
    entry.document.reset();
    const auto read = readRegularFile(file);
    if (read.status != ReadResult::Status::ok) {
        DebugLog::write([&] { return "calendar: can't read " + file.string() + ": " + read.error; });
        return;
    }
    std::string problem;
    entry.document = IcsDocument::parse(read.contents, problem);
    if (!entry.document) {
        DebugLog::write([&] { return "calendar: skipped " + file.string() + ": " + problem; });
    } else if (entry.document->errorCount() > 0) {
        DebugLog::write([&] {
            return "calendar: " + file.string() + ": " + std::to_string(entry.document->errorCount()) +
                   " unreadable lines left out";
        });
    }
    entry.calendar = calendarNameFor(file, entry.document.get());
}

EventReading CalendarLibrary::readingFor(const fs::path& file, const Entry& entry) const {
    return EventReading{entry.calendar, m_userAddresses, file};
}

std::vector<CalendarEvent> CalendarLibrary::events(Date from, Date to) const {
    std::vector<CalendarEvent> events;
    for (const auto& [file, entry] : m_files) {
        if (entry.document) entry.document->appendEvents(from, to, readingFor(file, entry), events);
    }
    return events;
}

std::vector<CalendarTodo> CalendarLibrary::todos(Date from, Date to) const {
    std::vector<CalendarTodo> todos;
    for (const auto& [file, entry] : m_files) {
        if (entry.document) entry.document->appendTodos(from, to, readingFor(file, entry), todos);
    }
    return todos;
}

std::vector<fs::path> defaultCalendarFolders(const fs::path& dataHome) {
    return {dataHome / "calendars", dataHome / "evolution" / "calendar"};
}

}  // namespace vantrelle
