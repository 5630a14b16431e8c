#pragma once

#include <cstdint>

namespace vantrelle {

// What the scanner skipped in the agents' logs since it started. Each finished line is read once, so a
// bad line counts once however often the log is scanned; a file that can't be read counts once until
// it can.
struct LogProblems {
    std::int64_t brokenLines = 0;      // finished lines that aren't a whole JSON object
    std::int64_t futureLines = 0;      // lines or messages dated more than a day after the scan
    std::int64_t longLines = 0;        // lines over 1,000,000 bytes, skipped to their line feed
    std::int64_t unreadableFiles = 0;  // not a regular file, or failed to open or read
    std::int64_t oversizedFiles = 0;   // whole-file logs too large to parse in memory

    LogProblems& operator+=(const LogProblems& other) {
        brokenLines += other.brokenLines;
        futureLines += other.futureLines;
        longLines += other.longLines;
        unreadableFiles += other.unreadableFiles;
        oversizedFiles += other.oversizedFiles;
        return *this;
    }
    [[nodiscard]] std::int64_t total() const {
        return brokenLines + futureLines + longLines + unreadableFiles + oversizedFiles;
    }
    bool operator==(const LogProblems&) const = default;
};

}  // namespace vantrelle
