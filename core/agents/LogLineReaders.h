#pragma once

// The JSON readers behind LogLineParser, on simdjson's On-Demand API. Internal to the parser's sources.
#include <simdjson.h>

#include <cmath>
#include <cstdint>
#include <string_view>
#include <vector>

#include "agents/LogLineParser.h"
#include "agents/LogLines.h"

namespace vantrelle {

namespace logjson {

// The build's own On-Demand front end; its first stage runs the SIMD kernel simdjson chose at start.
namespace od = simdjson::builtin::ondemand;
using simdjson::error_code;

// PERF NOTE: every value read below is a string_view into the parser's string buffer, valid until the
// next document is parsed, so a line is read without a single allocation of its own.

// A token count: a number exactly representable as a 64-bit integer, else 0. Only a malformed number
// is an error.
inline error_code readCount(od::value value, std::int64_t& out) {
    out = 0;
    od::json_type type{};
    if (auto error = value.type().get(type)) return error;
    if (type != od::json_type::number) return simdjson::SUCCESS;
    od::number number;
    if (value.get_number().get(number)) return simdjson::SUCCESS;  // too large for any integer
    if (number.is_int64()) {
        out = number.get_int64();
    } else if (number.is_double()) {
        const double d = number.get_double();
        if (std::trunc(d) == d && d >= -9223372036854775808.0 && d < 9223372036854775808.0) {
            out = static_cast<std::int64_t>(d);
        }
    }
    return simdjson::SUCCESS;
}

// A string value if the value is a string; `present` tells.
inline error_code readString(od::value value, std::string_view& out, bool& present) {
    od::json_type type{};
    if (auto error = value.type().get(type)) return error;
    if (type != od::json_type::string) return simdjson::SUCCESS;
    present = true;
    return value.get_string().get(out);
}

inline bool isType(od::value value, od::json_type wanted, error_code& error) {
    od::json_type type{};
    error = value.type().get(type);
    return !error && type == wanted;
}

#define VANTRELLE_TRY(expr)                  \
    do {                                     \
        if (auto err_ = (expr)) return err_; \
    } while (false)

inline bool atEnd(od::document& document) {
    return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
}

}  // namespace logjson

// Each reader gathers a line into its record without applying anything; a reader's error means the
// line is broken.
struct LogLineParser::Readers {
    using error_code = logjson::error_code;

    logjson::od::parser parser;
    std::vector<GeminiMessage> messages;  // reused between lines
    std::size_t messageCount = 0;

    LineRead line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
                  LineContext& context);
    bool geminiDocument(const char* data, std::size_t length, std::size_t capacity, LineContext& context);
    GeminiMessage& nextMessage();

    error_code readClaudeMessage(logjson::od::value value, ClaudeLine& line);
    error_code readClaude(logjson::od::object root, ClaudeLine& line);
    error_code readCodexTotals(logjson::od::value value, CodexLine& line);
    error_code readCodexInfo(logjson::od::value value, CodexLine& line);
    error_code readCodexGit(logjson::od::value value, CodexLine& line);
    error_code readCodexPayload(logjson::od::value value, CodexLine& line);
    error_code readCodex(logjson::od::object root, CodexLine& line);
    error_code readGeminiMessageField(std::string_view key, logjson::od::value v, GeminiMessage& message);
    error_code readGeminiMessage(logjson::od::value value, GeminiMessage& message);
    error_code readGeminiMessages(logjson::od::value value, bool& isArrayOfObjects);
    error_code readGeminiSet(logjson::od::value value, GeminiLine& line);
    error_code readGemini(logjson::od::object root, GeminiLine& line);
};

}  // namespace vantrelle
