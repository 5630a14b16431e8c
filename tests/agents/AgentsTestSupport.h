#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "agents/AIUsageEvent.h"
#include "agents/IsoDate.h"
#include "platform/Date.h"
#include "support/AppPaths.h"

namespace vantrelle::testing {

inline void appendTo(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::app) << text;
}

// Paths of a home in `folder`, data under its .local/share.
inline AppPaths homeIn(const std::filesystem::path& folder) {
    AppPaths result;
    result.home = folder;
    result.dataHome = folder / ".local/share";
    return result;
}

inline Date iso(std::string_view text) {
    return *parseIsoDate(text);
}

// Local-calendar tests run in UTC unless they say otherwise.
inline void useTimeZone(const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
}

inline std::string claudeAssistant(std::string_view id, std::string_view requestId, std::int64_t input,
                                   std::int64_t output,
                                   std::string_view timestamp = "2030-01-01T10:00:00.000Z",
                                   std::string_view model = "claude-sonnet-4-5") {
    std::string line = R"({"type":"assistant","timestamp":")" + std::string(timestamp) + "\"";
    if (!requestId.empty()) line += R"(,"requestId":")" + std::string(requestId) + "\"";
    line += R"(,"message":{"id":")" + std::string(id) + R"(","model":")" + std::string(model) +
            R"(","usage":{"input_tokens":)" + std::to_string(input) + R"(,"output_tokens":)" +
            std::to_string(output) + R"(,"cache_read_input_tokens":3,"cache_creation_input_tokens":4}}})" +
            "\n";
    return line;
}

inline void setModified(const std::filesystem::path& file, Date date) {
    timespec times[2];
    times[0].tv_sec = times[1].tv_sec = static_cast<time_t>(std::floor(date.seconds));
    times[0].tv_nsec = times[1].tv_nsec = 0;
    ::utimensat(AT_FDCWD, file.c_str(), times, 0);
}

}  // namespace vantrelle::testing
