#include "agents/LogLineParser.h"

#include <string>
#include <string_view>

#include "agents/Graphemes.h"
#include "agents/LogLineReaders.h"

static_assert(simdjson::SIMDJSON_PADDING <= vantrelle::LogLineParser::padding());

namespace vantrelle {

using namespace logjson;

LogLineParser::LogLineParser() : m_readers(std::make_unique<Readers>()) {}
LogLineParser::~LogLineParser() = default;

LineRead LogLineParser::line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
                             LineContext& context) {
    return m_readers->line(data, length, capacity, tool, context);
}

bool LogLineParser::geminiDocument(const char* data, std::size_t length, std::size_t capacity,
                                   LineContext& context) {
    return m_readers->geminiDocument(data, length, capacity, context);
}

LineRead LogLineParser::Readers::line(const char* data, std::size_t length, std::size_t capacity,
                                      AgentTool tool, LineContext& context) {
    od::document document;
    if (parser.iterate(data, length, capacity).get(document)) return LineRead::broken;
    od::object root;
    if (auto error = document.get_object().get(root)) {
        return error == simdjson::INCORRECT_TYPE ? LineRead::notAnObject : LineRead::broken;
    }
    // Each reader gathers the line first; the line is applied only if it parsed to its end, so a
    // broken or unfinished line changes nothing.
    switch (tool) {
        case AgentTool::claudeCode: {
            ClaudeLine line;
            if (readClaude(root, line) || !atEnd(document)) return LineRead::broken;
            applyClaude(line, context);
            break;
        }
        case AgentTool::codex: {
            CodexLine line;
            if (readCodex(root, line) || !atEnd(document)) return LineRead::broken;
            applyCodex(line, context);
            break;
        }
        case AgentTool::gemini: {
            GeminiLine line;
            messageCount = 0;
            if (readGemini(root, line) || !atEnd(document)) return LineRead::broken;
            line.setMessages = messages.data();
            line.setMessageCount = messageCount;
            applyGemini(line, context);
            break;
        }
    }
    return LineRead::applied;
}

// ---- Claude Code ----
error_code LogLineParser::Readers::readClaudeMessage(od::value value, ClaudeLine& line) {
    od::object message;
    VANTRELLE_TRY(value.get_object().get(message));
    line.messageIsObject = true;
    for (auto field : message) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        if (key == "id") {
            VANTRELLE_TRY(readString(v, line.messageId, line.hasMessageId));
        } else if (key == "model") {
            VANTRELLE_TRY(readString(v, line.model, line.hasModel));
        } else if (key == "usage") {
            error_code error{};
            line.usageIsObject = false;
            if (!isType(v, od::json_type::object, error)) {
                VANTRELLE_TRY(error);
                continue;
            }
            line.usageIsObject = true;
            line.input = line.output = line.cacheRead = line.cacheWrite = 0;
            od::object usage;
            VANTRELLE_TRY(v.get_object().get(usage));
            for (auto u : usage) {
                std::string_view k;
                VANTRELLE_TRY(u.unescaped_key().get(k));
                od::value uv;
                VANTRELLE_TRY(u.value().get(uv));
                if (k == "input_tokens")
                    VANTRELLE_TRY(readCount(uv, line.input));
                else if (k == "output_tokens")
                    VANTRELLE_TRY(readCount(uv, line.output));
                else if (k == "cache_read_input_tokens")
                    VANTRELLE_TRY(readCount(uv, line.cacheRead));
                else if (k == "cache_creation_input_tokens")
                    VANTRELLE_TRY(readCount(uv, line.cacheWrite));
            }
        } else if (key == "content") {
            // Only user lines read the content, and only in its string form.
            line.contentIsString = false;
            if (line.hasType && line.type != "user") continue;
            bool present = false;
            VANTRELLE_TRY(readString(v, line.content, present));
            line.contentIsString = present;
        }
    }
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readClaude(od::object root, ClaudeLine& line) {
    for (auto field : root) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        bool present = false;
        std::string_view text;
        if (key == "cwd") {
            VANTRELLE_TRY(readString(v, line.cwd, line.hasCwd));
        } else if (key == "gitBranch") {
            VANTRELLE_TRY(readString(v, line.branch, line.hasBranch));
        } else if (key == "timestamp") {
            VANTRELLE_TRY(readString(v, line.date, line.hasDate));
        } else if (key == "type") {
            VANTRELLE_TRY(readString(v, line.type, line.hasType));
        } else if (key == "message") {
            error_code error{};
            line.messageIsObject = line.usageIsObject = line.contentIsString = false;
            line.hasMessageId = line.hasModel = false;
            if (!isType(v, od::json_type::object, error)) {
                VANTRELLE_TRY(error);
                continue;
            }
            if (line.hasType && line.type != "assistant" && line.type != "user") continue;
            VANTRELLE_TRY(readClaudeMessage(v, line));
        } else if (key == "requestId") {
            VANTRELLE_TRY(readString(v, line.requestId, line.hasRequestId));
        } else if (key == "uuid") {
            VANTRELLE_TRY(readString(v, line.uuid, line.hasUuid));
        } else {
            VANTRELLE_TRY(readString(v, text, present));
        }
        // Keys that may name a title, and any string a title line could fall back to.
        if (key == "customTitle" || key == "title" || key == "aiTitle" || !line.hasAnyTitle) {
            bool isString = false;
            std::string_view value;
            if (key == "cwd")
                isString = line.hasCwd, value = line.cwd;
            else if (key == "gitBranch")
                isString = line.hasBranch, value = line.branch;
            else if (key == "timestamp")
                isString = line.hasDate, value = line.date;
            else if (key == "type")
                isString = line.hasType, value = line.type;
            else if (key == "requestId")
                isString = line.hasRequestId, value = line.requestId;
            else if (key == "uuid")
                isString = line.hasUuid, value = line.uuid;
            else if (key != "message")
                isString = present, value = text;
            if (!isString) continue;
            if (key == "customTitle") line.hasCustomTitle = true, line.customTitle = value;
            if (key == "title") line.hasTitle = true, line.title = value;
            if (key == "aiTitle") line.hasAiTitle = true, line.aiTitle = value;
            if (!line.hasAnyTitle && value.size() >= 4) {
                const std::size_t length = Graphemes::count(value, 120);
                if (length >= 4 && length <= 119) line.hasAnyTitle = true, line.anyTitle = value;
            }
        }
    }
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readCodexTotals(od::value value, CodexLine& line) {
    od::object total;
    VANTRELLE_TRY(value.get_object().get(total));
    line.totalIsObject = true;
    for (auto field : total) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        if (key == "input_tokens")
            VANTRELLE_TRY(readCount(v, line.input));
        else if (key == "output_tokens")
            VANTRELLE_TRY(readCount(v, line.output));
        else if (key == "cached_input_tokens")
            VANTRELLE_TRY(readCount(v, line.cached));
    }
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readCodexInfo(od::value value, CodexLine& line) {
    od::object info;
    VANTRELLE_TRY(value.get_object().get(info));
    line.infoIsObject = true;
    for (auto field : info) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        error_code error{};
        if (key == "model") {
            VANTRELLE_TRY(readString(v, line.infoModel, line.hasInfoModel));
        } else if (key == "total_token_usage") {
            if (isType(v, od::json_type::object, error)) VANTRELLE_TRY(readCodexTotals(v, line));
            VANTRELLE_TRY(error);
        }
    }
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readCodexGit(od::value value, CodexLine& line) {
    od::object git;
    VANTRELLE_TRY(value.get_object().get(git));
    for (auto field : git) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        if (key == "branch") VANTRELLE_TRY(readString(v, line.branch, line.hasBranch));
    }
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readCodexPayload(od::value value, CodexLine& line) {
    od::object payload;
    VANTRELLE_TRY(value.get_object().get(payload));
    line.payloadIsObject = true;
    for (auto field : payload) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        error_code error{};
        if (key == "type") {
            VANTRELLE_TRY(readString(v, line.payloadType, line.hasPayloadType));
        } else if (key == "cwd") {
            VANTRELLE_TRY(readString(v, line.cwd, line.hasCwd));
        } else if (key == "model") {
            VANTRELLE_TRY(readString(v, line.payloadModel, line.hasPayloadModel));
        } else if (key == "git") {
            if (isType(v, od::json_type::object, error)) VANTRELLE_TRY(readCodexGit(v, line));
            VANTRELLE_TRY(error);
        } else if (key == "info") {
            if (isType(v, od::json_type::object, error)) VANTRELLE_TRY(readCodexInfo(v, line));
            VANTRELLE_TRY(error);
        }
    }
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readCodex(od::object root, CodexLine& line) {
    for (auto field : root) {
        std::string_view key;
        VANTRELLE_TRY(field.unescaped_key().get(key));
        od::value v;
        VANTRELLE_TRY(field.value().get(v));
        if (key == "timestamp") {
            VANTRELLE_TRY(readString(v, line.date, line.hasDate));
        } else if (key == "type") {
            VANTRELLE_TRY(readString(v, line.type, line.hasType));
        } else if (key == "payload") {
            // A repeated key replaces what an earlier one said.
            const CodexLine top = line;
            line = CodexLine{};
            line.hasDate = top.hasDate, line.hasType = top.hasType, line.date = top.date,
            line.type = top.type;
            error_code error{};
            if (!isType(v, od::json_type::object, error)) {
                VANTRELLE_TRY(error);
                continue;
            }
            VANTRELLE_TRY(readCodexPayload(v, line));
        }
    }
    return simdjson::SUCCESS;
}

}  // namespace vantrelle
