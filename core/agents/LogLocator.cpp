#include "agents/LogLocator.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <string_view>

#include "agents/PromptText.h"
#include "support/AtomicFile.h"

namespace vantrelle {

namespace {

struct Entry {
    std::string name;
    bool isDirectory = false;
    std::uint64_t size = 0;
    Date modified = Date::distantPast();
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
    return !entry.isDirectory && hasExtension(entry.name, extension) && entry.modified >= cutoff;
}

void walkTree(const std::filesystem::path& folder, Date cutoff, AgentTool tool,
              std::vector<LogCandidate>& out, int depth = 0) {
    if (depth > 32) return;
    for (const auto& entry : listFolder(folder)) {
        if (entry.isDirectory) {
            walkTree(folder / entry.name, cutoff, tool, out, depth + 1);
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
        if (wanted) out.push_back({folder / entry.name, tool, entry.size, entry.modified});
    }
}

}  // namespace

std::vector<LogCandidate> candidateLogFiles(const std::filesystem::path& home, Date cutoff) {
    std::vector<LogCandidate> out;
    const auto projects = home / ".claude/projects";
    for (const auto& project : listFolder(projects)) {
        for (const auto& entry : listFolder(projects / project.name)) {
            if (qualifies(entry, "jsonl", cutoff)) {
                out.push_back({projects / project.name / entry.name, AgentTool::claudeCode, entry.size,
                               entry.modified});
            }
        }
    }
    walkTree(home / ".codex/sessions", cutoff, AgentTool::codex, out);
    for (const char* root : {".gemini/tmp", ".cache/.gemini/tmp"}) {
        for (const auto& project : listFolder(home / root)) {
            walkTree(home / root / project.name / "chats", cutoff, AgentTool::gemini, out);
        }
    }
    return out;
}

std::string geminiProjectRoot(const std::filesystem::path& file) {
    std::filesystem::path folder = file.parent_path();
    while (folder.filename() != "chats") {
        if (std::distance(folder.begin(), folder.end()) < 3) break;
        folder = folder.parent_path();
    }
    const std::filesystem::path project = folder.parent_path();
    if (auto text = readWholeFile(project / ".project_root")) {
        const auto trimmed = trimWhitespace(*text);
        if (!trimmed.empty()) return std::string(trimmed);
    }
    return project.filename().string();
}

}  // namespace vantrelle
