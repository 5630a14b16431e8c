#include "support/StaleTemporaryFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>

#include "support/AtomicFile.h"
#include "support/DebugLog.h"
#include "support/FileDescriptor.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// mkstemp's six random letters and digits. A suffix of lower-case letters only ("backup", "before")
// is far more likely a name a person gave, so it is left alone.
bool isLegacySuffix(std::string_view suffix) {
    if (suffix.size() != 6) return false;
    const auto isAlnum = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    const auto isLower = [](char c) { return std::islower(static_cast<unsigned char>(c)) != 0; };
    return std::all_of(suffix.begin(), suffix.end(), isAlnum) &&
           !std::all_of(suffix.begin(), suffix.end(), isLower);
}

bool isLegacyTemporary(const std::string& name, const std::vector<std::string>& legacyNames) {
    return std::any_of(legacyNames.begin(), legacyNames.end(), [&](const std::string& legacy) {
        return name.size() == legacy.size() + 7 && name.compare(0, legacy.size(), legacy) == 0 &&
               name[legacy.size()] == '.' && isLegacySuffix(std::string_view(name).substr(legacy.size() + 1));
    });
}

// A live writer holds its temporary file locked until it has renamed it; a killed one's lock died with it.
bool removeIfAbandoned(const fs::path& file) {
    FileDescriptor fd(::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!fd.isOpen()) return false;
    struct stat info {};
    if (::fstat(fd.get(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
    if (::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) return false;
    return ::unlink(file.c_str()) == 0;
}

}  // namespace

std::vector<fs::path> removeStaleTemporaryFiles(const fs::path& folder,
                                                const std::vector<std::string>& legacyNames) {
    std::vector<fs::path> removed;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (!isTemporaryFileName(name) && !isLegacyTemporary(name, legacyNames)) continue;
        if (removeIfAbandoned(it->path())) removed.push_back(it->path());
    }
    for (const auto& file : removed) {
        DebugLog::write([&] { return "files: removed " + file.string() + ", left by an interrupted write"; });
    }
    return removed;
}

}  // namespace vantrelle
