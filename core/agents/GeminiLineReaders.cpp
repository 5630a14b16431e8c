// The Gemini CLI side of the JSON readers: chat lines, "$set" updates and whole-file chats.
#include <string>
#include <string_view>

#include "agents/LogLineReaders.h"

namespace vantrelle {

using namespace logjson;

GeminiMessage& LogLineParser::Readers::nextMessage() {
    if (messageCount == messages.size()) messages.emplace_back();
    GeminiMessage& message = messages[messageCount++];
    message = GeminiMessage{};
    return message;
}

namespace {

// The text of "content": a string as it stands, or the "text" strings of an array of objects joined
// with blanks; anything else gives no text.
error_code readGeminiContent(od::value v, std::string& text) {
    text.clear();
    od::json_type type{};
    VANTRELLE_TRY(v.type().get(type));
    if (type == od::json_type::string) {
        std::string_view whole;
        VANTRELLE_TRY(v.get_string().get(whole));
        text = whole;
        return simdjson::SUCCESS;
    }
    if (type != od::json_type::array) return simdjson::SUCCESS;
    od::array parts;
    VANTRELLE_TRY(v.get_array().get(parts));
    bool allObjects = true;
    bool first = true;
    for (auto part : parts) {
        od::value pv;
        VANTRELLE_TRY(part.get(pv));
        error_code error{};
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
            std::string_view piece;
            VANTRELLE_TRY(readString(tv, piece, present));
            if (!present) continue;
            if (!first) text += ' ';
            text += piece;
            first = false;
        }
    }
    if (!allObjects) text.clear();
    return simdjson::SUCCESS;
}

error_code readGeminiTokens(od::value v, GeminiMessage& message) {
    message.tokensIsObject = false;
    error_code error{};
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
    return simdjson::SUCCESS;
}

}  // namespace

// Reads one key of a message object; the same keys serve a message line and a message in an array.
error_code LogLineParser::Readers::readGeminiMessageField(std::string_view key, od::value v,
                                                          GeminiMessage& message) {
    if (key == "timestamp") return readString(v, message.date, message.hasDate);
    if (key == "type") return readString(v, message.type, message.hasType);
    if (key == "id") return readString(v, message.id, message.hasId);
    if (key == "model") return readString(v, message.model, message.hasModel);
    if (key == "content") return readGeminiContent(v, message.text);
    if (key == "tokens") return readGeminiTokens(v, message);
    return simdjson::SUCCESS;
}

error_code LogLineParser::Readers::readGeminiMessage(od::value value, GeminiMessage& message) {
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
error_code LogLineParser::Readers::readGeminiMessages(od::value value, bool& isArrayOfObjects) {
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

error_code LogLineParser::Readers::readGeminiSet(od::value value, GeminiLine& line) {
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

error_code LogLineParser::Readers::readGemini(od::object root, GeminiLine& line) {
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

bool LogLineParser::Readers::geminiDocument(const char* data, std::size_t length, std::size_t capacity,
                                            LineContext& context) {
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

}  // namespace vantrelle
