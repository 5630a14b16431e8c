#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "agents/AgentTool.h"
#include "platform/Date.h"

namespace vantrelle {

// What is known of one session, one record per log file.
struct AISessionMeta {
    std::string sessionId;  // the log file's name without extension, never a value from inside it
    AgentTool tool = AgentTool::claudeCode;
    std::filesystem::path fileURL;
    std::string cwd;  // project directory; "" until known
    std::optional<std::string> branch;
    std::optional<std::string> title;
    std::optional<std::string> firstPrompt;
    std::optional<std::string> lastPrompt;
    std::optional<Date> firstTimestamp;
    std::optional<Date> lastTimestamp;
    Date fileModified = Date::distantPast();  // the file's modification date at the last read
    std::map<std::string, std::int64_t, std::less<>> modelCounts;  // replies per model name
    std::int64_t messages = 0;

    bool operator==(const AISessionMeta&) const = default;
};

}  // namespace vantrelle
