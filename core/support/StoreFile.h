#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/Clock.h"
#include "support/AtomicFile.h"

namespace vantrelle {

// The one file behind a store, read and written so that a user's data is never lost: a file that
// can't be read or parsed is moved aside to "<name>.unreadable-<UTC time>" (the newest three such
// copies kept), logged, and the store goes on with its defaults. Every store reads and writes its file
// through one of these.
class StoreFile {
public:
    static constexpr int kKeptUnreadableCopies = 3;

    // `logName` starts the store's log lines ("defaults", "wrapped"). A read-only store file (demo
    // mode) is never moved aside nor written: write() then does nothing.
    StoreFile(std::filesystem::path file, std::string logName, const Clock& clock, bool readOnly = false);

    [[nodiscard]] const std::filesystem::path& path() const { return m_file; }

    // The stored text. Nothing on a first run, for a file of only white space (it holds nothing to keep),
    // and for a file that couldn't be read, which has been moved aside by then.
    [[nodiscard]] std::optional<std::string> read();

    // The text that read() gave can't be used: moves the file aside. `reason` goes to the log.
    void setAside(std::string_view reason);

    // Replaces the file. Refused while an unusable file is still in place, because it couldn't be
    // moved aside: it is left alone rather than overwritten.
    WriteResult write(std::string_view contents);

private:
    std::filesystem::path m_file;
    std::string m_logName;
    const Clock& m_clock;
    bool m_readOnly;
    bool m_keepOff = false;
};

// Moves `file` to "<file>.unreadable-<UTC yyyyMMddTHHmmssZ>" (a counter added if that name is taken)
// and removes the oldest copies beyond the newest `keep`. Gives the new path, or why it failed.
[[nodiscard]] std::variant<std::filesystem::path, std::string> moveAsideUnreadable(
    const std::filesystem::path& file, Date now, int keep);

}  // namespace vantrelle
