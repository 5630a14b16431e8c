#include "agents/LogLocator.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "agents/PromptText.h"
#include "support/ReadFile.h"

namespace vantrelle {

namespace {

struct Entry {
    std::string name;
    bool isDirectory = false;
    bool isRegular = false;  // only regular files are logs: a FIFO or device must never be opened
    std::uint64_t size = 0;
    Date modified = Date::distantPast();
    std::pair<dev_t, ino_t> identity{};  // the same folder or file reached through links is met once
};

// What a walk has met, by device and inode: a symlink cycle ends at the first folder seen again, and
// a log linked from two places counts once.
struct Walk {
    std::set<std::pair<dev_t, ino_t>> folders;
    std::set<std::pair<dev_t, ino_t>> files;
    std::vector<LogCandidate> out;

    bool enter(const Entry& folder) { return folders.insert(folder.identity).second; }
    void take(const std::filesystem::path& path, AgentTool tool, const Entry& entry) {
        if (files.insert(entry.identity).second) out.push_back({path, tool, entry.size, entry.modified});
    }
};

// The visible entries of a folder with their modification dates, in name order. PERF NOTE: one
// readdir pass and one fstatat per entry, relative to the open folder.
std::vector<Entry> listFolder(const std::filesystem::path& folder) {
    std::vector<Entry> entries;
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) return entries;
    const int fd = ::dirfd(dir);
    while (const dirent* item = ::readdir(dir)) {
        if (item->d_name[0] == '.') continue;
        Entry entry{item->d_name};
        struct stat info {};
        if (::fstatat(fd, item->d_name, &info, 0) == 0) {
            entry.isDirectory = S_ISDIR(info.st_mode);
            entry.isRegular = S_ISREG(info.st_mode);
            entry.identity = {info.st_dev, info.st_ino};
            entry.size = static_cast<std::uint64_t>(info.st_size);
            entry.modified = Date{static_cast<double>(info.st_mtim.tv_sec) + info.st_mtim.tv_nsec / 1e9};
        }
        entries.push_back(std::move(entry));
    }
    ::closedir(dir);
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return entries;
}

bool hasExtension(std::string_view name, std::string_view extension) {
    const auto dot = name.rfind('.');
    return dot != std::string_view::npos && dot > 0 && name.substr(dot + 1) == extension;
}

bool qualifies(const Entry& entry, std::string_view extension, Date cutoff) {
    return entry.isRegular && hasExtension(entry.name, extension) && entry.modified >= cutoff;
}

void walkTree(const std::filesystem::path& folder, Date cutoff, AgentTool tool, Walk& walk, int depth = 0) {
    if (depth > 32) return;
    for (const auto& entry : listFolder(folder)) {
        if (entry.isDirectory) {
            if (walk.enter(entry)) walkTree(folder / entry.name, cutoff, tool, walk, depth + 1);
            continue;
        }
        bool wanted = false;
        if (tool == AgentTool::gemini) {
            wanted = (qualifies(entry, "jsonl", cutoff) || qualifies(entry, "json", cutoff)) &&
                     entry.name.find(".tmp-") == std::string::npos &&
                     entry.name.find(".unreadable-") == std::string::npos;
        } else {
            wanted = qualifies(entry, "jsonl", cutoff);
        }
        if (wanted) walk.take(folder / entry.name, tool, entry);
    }
}

// The folder itself counts as met, so a link back to it from inside is not followed.
void enterRoot(const std::filesystem::path& folder, Walk& walk) {
    struct stat info {};
    if (::stat(folder.c_str(), &info) == 0) walk.folders.insert({info.st_dev, info.st_ino});
}

}  // namespace

std::vector<LogCandidate> candidateLogFiles(const std::filesystem::path& home, Date cutoff) {
    Walk walk;
    const auto projects = home / ".claude/projects";
    enterRoot(projects, walk);
    for (const auto& project : listFolder(projects)) {
        if (!project.isDirectory || !walk.enter(project)) continue;
        for (const auto& entry : listFolder(projects / project.name)) {
            if (qualifies(entry, "jsonl", cutoff)) {
                walk.take(projects / project.name / entry.name, AgentTool::claudeCode, entry);
            }
        }
    }
    enterRoot(home / ".codex/sessions", walk);
    walkTree(home / ".codex/sessions", cutoff, AgentTool::codex, walk);
    for (const char* root : {".gemini/tmp", ".cache/.gemini/tmp"}) {
        enterRoot(home / root, walk);
        for (const auto& project : listFolder(home / root)) {
            if (!project.isDirectory || !walk.enter(project)) continue;
            enterRoot(home / root / project.name / "chats", walk);
            walkTree(home / root / project.name / "chats", cutoff, AgentTool::gemini, walk);
        }
    }
    return std::move(walk.out);
}

std::string geminiProjectRoot(const std::filesystem::path& file) {
    std::filesystem::path folder = file.parent_path();
    while (folder.filename() != "chats") {
        if (std::distance(folder.begin(), folder.end()) < 3) break;
        folder = folder.parent_path();
    }
    const std::filesystem::path project = folder.parent_path();
    // Read only if it is a regular file, without waiting: a FIFO here once held the scan for ever.
    if (auto text = readWholeFile(project / ".project_root")) {
        const auto trimmed = trimWhitespace(*text);
        if (!trimmed.empty()) return std::string(trimmed);
    }
    return project.filename().string();
}

}  // namespace vantrelle
