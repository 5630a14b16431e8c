#include "agents/LogLineParser.h"

#include <simdjson.h>

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "agents/Graphemes.h"

static_assert(simdjson::SIMDJSON_PADDING <= vantrelle::LogLineParser::padding());

namespace vantrelle {

namespace {

// The build's own On-Demand front end; its first stage runs the SIMD kernel simdjson chose at start.
namespace od = simdjson::builtin::ondemand;
using simdjson::error_code;

// PERF NOTE: every value read below is a string_view into the parser's string buffer, valid until the
// next document is parsed, so a line is read without a single allocation of its own.

// A token count: a number exactly representable as a 64-bit integer, else 0. Only a malformed number
// is an error.
error_code readCount(od::value value, std::int64_t& out) {
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
error_code readString(od::value value, std::string_view& out, bool& present) {
    od::json_type type{};
    if (auto error = value.type().get(type)) return error;
    if (type != od::json_type::string) return simdjson::SUCCESS;
    present = true;
    return value.get_string().get(out);
}

bool isType(od::value value, od::json_type wanted, error_code& error) {
    od::json_type type{};
    error = value.type().get(type);
    return !error && type == wanted;
}

#define VANTRELLE_TRY(expr)                  \
    do {                                     \
        if (auto err_ = (expr)) return err_; \
    } while (false)

bool atEnd(od::document& document) {
    return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
}

}  // namespace

// The readers: each gathers a line into its record without applying anything.
struct LogLineParser::Readers {
    od::parser parser;
    std::vector<GeminiMessage> messages;  // reused between lines
    std::size_t messageCount = 0;

    GeminiMessage& nextMessage() {
        if (messageCount == messages.size()) messages.emplace_back();
        GeminiMessage& message = messages[messageCount++];
        message = GeminiMessage{};
        return message;
    }

    // ---- Claude Code ----

    error_code readClaudeMessage(od::value value, ClaudeLine& line) {
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

    error_code readClaude(od::object root, ClaudeLine& line) {
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

    error_code readCodexPayload(od::value value, CodexLine& line) {
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
                if (!isType(v, od::json_type::object, error)) {
                    VANTRELLE_TRY(error);
                    continue;
                }
                od::object git;
                VANTRELLE_TRY(v.get_object().get(git));
                for (auto g : git) {
                    std::string_view k;
                    VANTRELLE_TRY(g.unescaped_key().get(k));
                    od::value gv;
                    VANTRELLE_TRY(g.value().get(gv));
                    if (k == "branch") VANTRELLE_TRY(readString(gv, line.branch, line.hasBranch));
                }
            } else if (key == "info") {
                if (!isType(v, od::json_type::object, error)) {
                    VANTRELLE_TRY(error);
                    continue;
                }
                line.infoIsObject = true;
                od::object info;
                VANTRELLE_TRY(v.get_object().get(info));
                for (auto i : info) {
                    std::string_view k;
                    VANTRELLE_TRY(i.unescaped_key().get(k));
                    od::value iv;
                    VANTRELLE_TRY(i.value().get(iv));
                    if (k == "model") {
                        VANTRELLE_TRY(readString(iv, line.infoModel, line.hasInfoModel));
                    } else if (k == "total_token_usage") {
                        if (!isType(iv, od::json_type::object, error)) {
                            VANTRELLE_TRY(error);
                            continue;
                        }
                        line.totalIsObject = true;
                        od::object total;
                        VANTRELLE_TRY(iv.get_object().get(total));
                        for (auto t : total) {
                            std::string_view tk;
                            VANTRELLE_TRY(t.unescaped_key().get(tk));
                            od::value tv;
                            VANTRELLE_TRY(t.value().get(tv));
                            if (tk == "input_tokens")
                                VANTRELLE_TRY(readCount(tv, line.input));
                            else if (tk == "output_tokens")
                                VANTRELLE_TRY(readCount(tv, line.output));
                            else if (tk == "cached_input_tokens")
                                VANTRELLE_TRY(readCount(tv, line.cached));
                        }
                    }
                }
            }
        }
        return simdjson::SUCCESS;
    }

    error_code readCodex(od::object root, CodexLine& line) {
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

    // Reads one key of a message object; the same keys serve a message line and a message in an array.
    error_code readGeminiMessageField(std::string_view key, od::value v, GeminiMessage& message) {
        error_code error{};
        if (key == "timestamp") {
            VANTRELLE_TRY(readString(v, message.date, message.hasDate));
        } else if (key == "type") {
            VANTRELLE_TRY(readString(v, message.type, message.hasType));
        } else if (key == "id") {
            VANTRELLE_TRY(readString(v, message.id, message.hasId));
        } else if (key == "model") {
            VANTRELLE_TRY(readString(v, message.model, message.hasModel));
        } else if (key == "content") {
            message.text.clear();
            od::json_type type{};
            VANTRELLE_TRY(v.type().get(type));
            if (type == od::json_type::string) {
                std::string_view text;
                VANTRELLE_TRY(v.get_string().get(text));
                message.text = text;
            } else if (type == od::json_type::array) {
                od::array parts;
                VANTRELLE_TRY(v.get_array().get(parts));
                bool allObjects = true;
                bool first = true;
                for (auto part : parts) {
                    od::value pv;
                    VANTRELLE_TRY(part.get(pv));
                    if (!isType(pv, od::json_type::object, error)) {
                        VANTRELLE_TRY(error);
                        allObjects = false;
                        continue;
                    }
                    od::object object;
                    VANTRELLE_TRY(pv.get_object().get(object));
                    for (auto f : object) {
                        std::string_view k;
                        VANTRELLE_TRY(f.unescaped_key().get(k));
                        if (k != "text") continue;
                        od::value tv;
                        VANTRELLE_TRY(f.value().get(tv));
                        bool present = false;
                        std::string_view text;
                        VANTRELLE_TRY(readString(tv, text, present));
                        if (!present) continue;
                        if (!first) message.text += ' ';
                        message.text += text;
                        first = false;
                    }
                }
                if (!allObjects) message.text.clear();
            }
        } else if (key == "tokens") {
            message.tokensIsObject = false;
            if (!isType(v, od::json_type::object, error)) return error;
            message.tokensIsObject = true;
            message.input = message.cached = message.output = message.thoughts = 0;
            od::object tokens;
            VANTRELLE_TRY(v.get_object().get(tokens));
            for (auto t : tokens) {
                std::string_view k;
                VANTRELLE_TRY(t.unescaped_key().get(k));
                od::value tv;
                VANTRELLE_TRY(t.value().get(tv));
                if (k == "input")
                    VANTRELLE_TRY(readCount(tv, message.input));
                else if (k == "cached")
                    VANTRELLE_TRY(readCount(tv, message.cached));
                else if (k == "output")
                    VANTRELLE_TRY(readCount(tv, message.output));
                else if (k == "thoughts")
                    VANTRELLE_TRY(readCount(tv, message.thoughts));
            }
        }
        return simdjson::SUCCESS;
    }

    error_code readGeminiMessage(od::value value, GeminiMessage& message) {
        od::object object;
        VANTRELLE_TRY(value.get_object().get(object));
        for (auto field : object) {
            std::string_view key;
            VANTRELLE_TRY(field.unescaped_key().get(key));
            od::value v;
            VANTRELLE_TRY(field.value().get(v));
            VANTRELLE_TRY(readGeminiMessageField(key, v, message));
        }
        return simdjson::SUCCESS;
    }

    // An array of objects fills `messages`; anything else leaves it empty.
    error_code readGeminiMessages(od::value value, bool& isArrayOfObjects) {
        messageCount = 0;
        isArrayOfObjects = false;
        error_code error{};
        if (!isType(value, od::json_type::array, error)) return error;
        od::array array;
        VANTRELLE_TRY(value.get_array().get(array));
        bool allObjects = true;
        for (auto item : array) {
            od::value v;
            VANTRELLE_TRY(item.get(v));
            if (!isType(v, od::json_type::object, error)) {
                VANTRELLE_TRY(error);
                allObjects = false;
                continue;
            }
            VANTRELLE_TRY(readGeminiMessage(v, nextMessage()));
        }
        isArrayOfObjects = allObjects;
        if (!allObjects) messageCount = 0;
        return simdjson::SUCCESS;
    }

    error_code readGeminiSet(od::value value, GeminiLine& line) {
        od::object set;
        VANTRELLE_TRY(value.get_object().get(set));
        line.setIsObject = true;
        for (auto field : set) {
            std::string_view key;
            VANTRELLE_TRY(field.unescaped_key().get(key));
            od::value v;
            VANTRELLE_TRY(field.value().get(v));
            if (key == "messages") {
                bool allObjects = false;
                VANTRELLE_TRY(readGeminiMessages(v, allObjects));
            } else if (key == "summary") {
                VANTRELLE_TRY(readString(v, line.summary, line.hasSummary));
            }
        }
        return simdjson::SUCCESS;
    }

    error_code readGemini(od::object root, GeminiLine& line) {
        for (auto field : root) {
            std::string_view key;
            VANTRELLE_TRY(field.unescaped_key().get(key));
            od::value v;
            VANTRELLE_TRY(field.value().get(v));
            error_code error{};
            if (key == "$set") {
                line.setIsObject = false;
                if (!isType(v, od::json_type::object, error)) {
                    VANTRELLE_TRY(error);
                    continue;
                }
                VANTRELLE_TRY(readGeminiSet(v, line));
                continue;
            }
            if (key == "$rewindTo") line.hasRewind = true;
            if (key == "type") line.hasType = true;
            if (key == "sessionId") line.hasSessionId = true;
            if (key == "startTime") {
                VANTRELLE_TRY(readString(v, line.startTime, line.hasStartTime));
            } else if (key == "kind") {
                VANTRELLE_TRY(readString(v, line.kind, line.hasKind));
            } else {
                VANTRELLE_TRY(readGeminiMessageField(key, v, line.message));
            }
        }
        return simdjson::SUCCESS;
    }

    LineRead line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
                  LineContext& context) {
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

    bool geminiDocument(const char* data, std::size_t length, std::size_t capacity, LineContext& context) {
        od::document document;
        if (parser.iterate(data, length, capacity).get(document)) return false;
        od::object root;
        if (document.get_object().get(root)) return false;
        GeminiDocument whole;
        bool messagesOk = false;
        messageCount = 0;
        for (auto field : root) {
            std::string_view key;
            od::value v;
            if (field.unescaped_key().get(key) || field.value().get(v)) return false;
            error_code error{};
            if (key == "startTime")
                error = readString(v, whole.start, whole.hasStart);
            else if (key == "summary")
                error = readString(v, whole.summary, whole.hasSummary);
            else if (key == "messages")
                error = readGeminiMessages(v, messagesOk);
            if (error) return false;
        }
        if (!atEnd(document)) return false;
        if (messagesOk) {
            whole.messages = messages.data();
            whole.messageCount = messageCount;
        }
        applyGeminiDocument(whole, context);
        return true;
    }
};

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

}  // namespace vantrelle
