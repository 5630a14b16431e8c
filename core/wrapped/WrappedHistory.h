#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/Date.h"
#include "support/StoreFile.h"

namespace vantrelle {

// The per-day ledger behind the recap: focus blocks and minutes, meetings joined and agent tokens of
// each local calendar day, kept for 400 days in one JSON file. Main thread only.
class WrappedHistory {
public:
    struct Day {
        std::int64_t focusBlocks = 0;
        std::int64_t focusMinutes = 0;
        std::int64_t meetingsJoined = 0;
        std::int64_t aiTokens = 0;
        bool operator==(const Day&) const = default;
    };

    struct DayTokens {
        Date date;
        std::int64_t tokens = 0;
    };

    // `file` is "wrapped-history.json" in the data root. In demo mode nothing is ever written. A file
    // that can't be read is moved aside and the history starts afresh.
    WrappedHistory(std::filesystem::path file, const Clock& clock, bool demoMode);

    [[nodiscard]] static std::filesystem::path defaultFile(const std::filesystem::path& dataRoot) {
        return dataRoot / "wrapped-history.json";
    }

    void recordFocusBlock(std::int64_t minutes);
    void recordMeetingJoined();
    // Idempotent: each day keeps the largest figure it was ever given.
    void recordAITokens(const std::vector<DayTokens>& entries);

    [[nodiscard]] const std::map<std::string, Day>& days() const { return m_days; }
    [[nodiscard]] const std::optional<Date>& trackingSince() const { return m_trackingSince; }
    [[nodiscard]] const std::filesystem::path& fileURL() const { return m_file.path(); }

    // "yyyy-MM-dd" of the local calendar.
    [[nodiscard]] static std::string key(Date date);

private:
    void load();
    [[nodiscard]] bool parse(const std::string& text);
    void save();

    StoreFile m_file;
    const Clock& m_clock;
    bool m_demo;
    std::map<std::string, Day> m_days;
    std::optional<Date> m_trackingSince;
};

}  // namespace vantrelle
