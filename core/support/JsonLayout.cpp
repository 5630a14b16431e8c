#include "support/JsonLayout.h"

#include <nlohmann/json.hpp>

namespace vantrelle {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// The end of the string whose opening quote is at `at`.
std::optional<std::size_t> skipString(std::string_view text, std::size_t at) {
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            return i + 1;
        }
    }
    return std::nullopt;
}

// The end of the array or object whose opening bracket is at `at`, by counting brackets outside
// strings: no recursion, however deep the value.
std::optional<std::size_t> skipContainer(std::string_view text, std::size_t at) {
    std::size_t depth = 0;
    for (std::size_t i = at; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"') {
            const auto end = skipString(text, i);
            if (!end) return std::nullopt;
            i = *end - 1;
        } else if (c == '[' || c == '{') {
            ++depth;
        } else if (c == ']' || c == '}') {
            if (--depth == 0) return i + 1;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> skipScalar(std::string_view text, std::size_t at) {
    std::size_t i = at;
    while (i < text.size() && !isSpace(text[i]) && text[i] != ',' && text[i] != ']' && text[i] != '}') ++i;
    if (i == at) return std::nullopt;
    return i;
}

}  // namespace

std::size_t skipJsonSpace(std::string_view text, std::size_t at) {
    while (at < text.size() && isSpace(text[at])) ++at;
    return at;
}

std::size_t jsonDocumentStart(std::string_view text) {
    const std::size_t start = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    return skipJsonSpace(text, start);
}

std::optional<std::size_t> skipJsonValue(std::string_view text, std::size_t at) {
    if (at >= text.size()) return std::nullopt;
    switch (text[at]) {
        case '"':
            return skipString(text, at);
        case '[':
        case '{':
            return skipContainer(text, at);
        default:
            return skipScalar(text, at);
    }
}

std::optional<JsonKind> jsonKindAt(std::string_view text, std::size_t at) {
    if (at >= text.size()) return std::nullopt;
    switch (text[at]) {
        case '{':
            return JsonKind::object;
        case '[':
            return JsonKind::array;
        case '"':
            return JsonKind::string;
        case 't':
        case 'f':
            return JsonKind::boolean;
        case 'n':
            return JsonKind::null;
        case '-':
            return JsonKind::number;
        default:
            if (text[at] >= '0' && text[at] <= '9') return JsonKind::number;
            return std::nullopt;
    }
}

const char* jsonKindName(JsonKind kind) {
    switch (kind) {
        case JsonKind::object:
            return "an object";
        case JsonKind::array:
            return "an array";
        case JsonKind::string:
            return "a string";
        case JsonKind::number:
            return "a number";
        case JsonKind::boolean:
            return "a boolean";
        case JsonKind::null:
            return "null";
    }
    return "a value";
}

std::optional<JsonContainer> scanJsonContainer(std::string_view text, std::size_t at) {
    if (at >= text.size() || (text[at] != '{' && text[at] != '[')) return std::nullopt;
    JsonContainer container;
    container.isObject = text[at] == '{';
    const char close = container.isObject ? '}' : ']';
    std::size_t i = skipJsonSpace(text, at + 1);
    if (i < text.size() && text[i] == close) {
        container.whole = {at, i + 1};
        return container;
    }
    while (i < text.size()) {
        JsonElement element;
        element.whole.begin = i;
        if (container.isObject) {
            if (text[i] != '"') return std::nullopt;
            const auto keyEnd = skipString(text, i);
            if (!keyEnd) return std::nullopt;
            element.key = {i, *keyEnd};
            i = skipJsonSpace(text, *keyEnd);
            if (i >= text.size() || text[i] != ':') return std::nullopt;
            i = skipJsonSpace(text, i + 1);
        }
        const auto valueEnd = skipJsonValue(text, i);
        if (!valueEnd) return std::nullopt;
        element.value = {i, *valueEnd};
        element.whole.end = *valueEnd;
        container.elements.push_back(element);
        i = skipJsonSpace(text, *valueEnd);
        if (i >= text.size()) return std::nullopt;
        if (text[i] == close) {
            container.whole = {at, i + 1};
            return container;
        }
        if (text[i] != ',') return std::nullopt;
        i = skipJsonSpace(text, i + 1);
    }
    return std::nullopt;
}

std::optional<std::string> jsonKey(std::string_view text, const JsonElement& member) {
    const auto quoted = text.substr(member.key.begin, member.key.end - member.key.begin);
    const auto key = nlohmann::json::parse(quoted, nullptr, /*allow_exceptions=*/false);
    if (!key.is_string()) return std::nullopt;
    return key.get<std::string>();
}

std::optional<std::size_t> findJsonMember(std::string_view text, const JsonContainer& object,
                                          std::string_view key) {
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < object.elements.size(); ++i) {
        if (jsonKey(text, object.elements[i]) == key) found = i;
    }
    return found;
}

}  // namespace vantrelle
