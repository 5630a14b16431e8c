#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "agents/AILogSnapshot.h"
#include "agents/AIUsageFigures.h"

namespace vantrelle {

// Tokens and cost of one model or one session.
struct StatusAmount {
    std::int64_t tokens = 0;
    double cost = 0;
    bool operator==(const StatusAmount&) const = default;
};

// The few figures a status line or a terminal view needs, small enough to hand over a socket or keep
// in a file: the panel's today and window figures, the recent sessions' costs and the window per model.
struct StatusFigures {
    Date generatedAt;
    std::string dayKey;  // the local day `today` belongs to
    StatusAmount today;
    std::optional<AIBlockUsage> block;           // the open 5-hour window, as the panel has it
    std::map<std::string, StatusAmount> models;  // the open window by model name
    std::map<std::string, StatusAmount> sessions;
    std::map<std::string, std::string> sessionModels;  // the model each session used most

    // Equal apart from the moment they were made: nothing worth writing again.
    [[nodiscard]] bool sameFigures(const StatusFigures& other) const;
    bool operator==(const StatusFigures&) const = default;
};

// The file the running app keeps the figures in, in its cache folder, and the instance request that
// answers them from memory.
inline constexpr std::string_view kStatusFiguresFile = "statusline.json";
inline constexpr std::string_view kStatusFiguresRequest = "statusline";

// Sessions kept in the figures: those with a reply in the last day, the busiest first.
inline constexpr double kStatusSessionHorizon = 24 * 60 * 60;
inline constexpr std::size_t kMaxStatusSessions = 200;

// Builds the figures from the events of a scan and what the panel shows of them.
[[nodiscard]] StatusFigures makeStatusFigures(const AILogSnapshot::Events& events, Date now,
                                              const AITotals& today,
                                              const std::optional<AIBlockUsage>& block);

[[nodiscard]] std::string statusFiguresJson(const StatusFigures& figures);
// Nothing for text that isn't figures; fields of the wrong type are left at their defaults.
[[nodiscard]] std::optional<StatusFigures> parseStatusFigures(std::string_view text);

}  // namespace vantrelle
