#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantrelle {

// What the JSON readers gather from one log line, before anything is applied. Plain data, the same
// for every instruction set the readers are built for; the views point into the parser's buffers and
// live until the next line is read. A `has` flag tells that the key was there with the wanted type.

struct ClaudeLine {
    bool hasCwd = false, hasBranch = false, hasDate = false, hasType = false;
    std::string_view cwd, branch, date, type;
    bool messageIsObject = false, usageIsObject = false;
    bool hasMessageId = false, hasModel = false, contentIsString = false;
    std::string_view messageId, model, content;
    std::int64_t input = 0, output = 0, cacheRead = 0, cacheWrite = 0;
    bool hasRequestId = false, hasUuid = false;
    std::string_view requestId, uuid;
    // Title lines: the named keys, and the first other string of 4 to 119 characters.
    bool hasCustomTitle = false, hasTitle = false, hasAiTitle = false, hasAnyTitle = false;
    std::string_view customTitle, title, aiTitle, anyTitle;
};

struct CodexLine {
    bool hasDate = false, hasType = false, payloadIsObject = false;
    std::string_view date, type;
    bool hasPayloadType = false, hasCwd = false, hasBranch = false;
    std::string_view payloadType, cwd, branch;
    bool infoIsObject = false, totalIsObject = false;
    std::int64_t input = 0, output = 0, cached = 0;
    bool hasInfoModel = false, hasPayloadModel = false;
    std::string_view infoModel, payloadModel;
};

struct GeminiMessage {
    bool hasDate = false, hasType = false, hasId = false, tokensIsObject = false, hasModel = false;
    std::string_view date, type, id, model;
    std::string text;  // the user text, joined from parts where it comes in parts
    std::int64_t input = 0, cached = 0, output = 0, thoughts = 0;
};

// A line of a ".jsonl" Gemini chat: an update ("$set"), a rewind, the session header or a message.
struct GeminiLine {
    bool setIsObject = false, hasRewind = false, hasType = false, hasSessionId = false;
    bool hasSummary = false, hasStartTime = false, hasKind = false;
    std::string_view summary, startTime, kind;
    GeminiMessage message;
    const GeminiMessage* setMessages = nullptr;  // the messages of "$set", if an array of objects
    std::size_t setMessageCount = 0;
};

// A whole-file ".json" Gemini chat.
struct GeminiDocument {
    bool hasStart = false, hasSummary = false;
    std::string_view start, summary;
    const GeminiMessage* messages = nullptr;  // set only if "messages" is an array of objects
    std::size_t messageCount = 0;
};

}  // namespace vantrelle
