#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "fakes/LogCapture.h"

namespace vantrelle::testing {

// The captured log's messages, one per line, without their time stamps.
inline std::vector<std::string> logMessages(const LogCapture& log) {
    std::vector<std::string> messages;
    std::istringstream lines(log.text());
    for (std::string line; std::getline(lines, line);) {
        const auto space = line.find(' ');
        messages.push_back(space == std::string::npos ? line : line.substr(space + 1));
    }
    return messages;
}

}  // namespace vantrelle::testing
