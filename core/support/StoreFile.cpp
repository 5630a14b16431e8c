#include "support/StoreFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <vector>

#include "support/DebugLog.h"
#include "support/FileErrors.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

std::string utcStamp(Date now) {
    const auto seconds = static_cast<std::time_t>(now.seconds);
    std::tm utc{};
    ::gmtime_r(&seconds, &utc);
    return fmt::format("{:04}{:02}{:02}T{:02}{:02}{:02}Z", utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday,
                       utc.tm_hour, utc.tm_min, utc.tm_sec);
}

// The first free name for this moment; two set-asides within one second get "-2", "-3".
fs::path freeName(const fs::path& file, Date now) {
    const std::string base = file.string() + ".unreadable-" + utcStamp(now);
    fs::path candidate = base;
    std::error_code error;
    for (int n = 2; fs::exists(fs::symlink_status(candidate, error)) && n < 1000; ++n) {
        candidate = base + "-" + std::to_string(n);
    }
    return candidate;
}

// The UTC stamps sort as text in time order, so the oldest copies are the first names.
void pruneCopies(const fs::path& file, int keep) {
    const std::string prefix = file.filename().string() + ".unreadable-";
    std::vector<fs::path> copies;
    std::error_code error;
    for (fs::directory_iterator it(file.parent_path(), error), end; !error && it != end;
         it.increment(error)) {
        if (it->path().filename().string().rfind(prefix, 0) == 0) copies.push_back(it->path());
    }
    std::sort(copies.begin(), copies.end());
    for (std::size_t i = 0; i + static_cast<std::size_t>(keep) < copies.size(); ++i)
        fs::remove(copies[i], error);
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

std::variant<fs::path, std::string> moveAsideUnreadable(const fs::path& file, Date now, int keep) {
    const fs::path aside = freeName(file, now);
    std::error_code error;
    fs::rename(file, aside, error);
    if (error) return "Couldn't move " + file.string() + " aside: " + systemReason(error.value());
    pruneCopies(file, keep);
    return aside;
}

StoreFile::StoreFile(fs::path file, std::string logName, const Clock& clock, bool readOnly)
    : m_file(std::move(file)), m_logName(std::move(logName)), m_clock(clock), m_readOnly(readOnly) {}

std::optional<std::string> StoreFile::read() {
    ReadResult result = readRegularFile(m_file);
    switch (result.status) {
        case ReadResult::Status::missing:
            return std::nullopt;
        case ReadResult::Status::failed:
            setAside(result.error);
            return std::nullopt;
        case ReadResult::Status::ok:
            break;
    }
    if (isBlank(result.contents)) return std::nullopt;
    return std::move(result.contents);
}

void StoreFile::setAside(std::string_view reason) {
    if (m_readOnly) {
        DebugLog::write([&] {
            return fmt::format("{}: ignoring unreadable {}: {}", m_logName, m_file.string(), reason);
        });
        return;
    }
    auto moved = moveAsideUnreadable(m_file, m_clock.now(), kKeptUnreadableCopies);
    if (const auto* aside = std::get_if<fs::path>(&moved)) {
        DebugLog::write([&] {
            return fmt::format("{}: moved unreadable {} aside to {} ({}); starting from defaults", m_logName,
                               m_file.string(), aside->string(), reason);
        });
        return;
    }
    m_keepOff = true;
    DebugLog::write([&] {
        return fmt::format("{}: {} ({}); it is left alone and nothing is saved over it", m_logName,
                           std::get<std::string>(moved), reason);
    });
}

WriteResult StoreFile::write(std::string_view contents) {
    if (m_readOnly) return WriteResult::success();
    if (m_keepOff) {
        return WriteResult::failure("Couldn't write " + m_file.string() +
                                    ": it couldn't be read nor moved aside, so it is left as it was");
    }
    return writeFileAtomically(m_file, contents);
}

}  // namespace vantrelle
