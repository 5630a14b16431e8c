#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrelle {

// Where things are in the text of a JSON document, so that a file can be edited in place: what isn't
// edited keeps its bytes (key order, number spelling, spacing). The scanner never recurses; it expects
// text that a parser has accepted and returns nothing, rather than misreading, where it finds otherwise.

// [begin, end) in bytes.
struct JsonSpan {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// One member of an object (key, colon, value) or one element of an array (value only).
struct JsonElement {
    JsonSpan whole;  // from the key, or the value in an array, to the end of the value
    JsonSpan key;    // the quoted key; empty in an array
    JsonSpan value;
};

struct JsonContainer {
    JsonSpan whole;  // from the opening bracket to just past the closing one
    bool isObject = false;
    std::vector<JsonElement> elements;
};

enum class JsonKind { object, array, string, number, boolean, null };

// Where the document's value starts: past a byte order mark and white space.
[[nodiscard]] std::size_t jsonDocumentStart(std::string_view text);
[[nodiscard]] std::size_t skipJsonSpace(std::string_view text, std::size_t at);
// The end of the value that starts at `at`.
[[nodiscard]] std::optional<std::size_t> skipJsonValue(std::string_view text, std::size_t at);
// The kind of the value that starts at `at`, from its first byte.
[[nodiscard]] std::optional<JsonKind> jsonKindAt(std::string_view text, std::size_t at);
[[nodiscard]] const char* jsonKindName(JsonKind kind);

// The elements of the array or object whose opening bracket is at `at`.
[[nodiscard]] std::optional<JsonContainer> scanJsonContainer(std::string_view text, std::size_t at);
// The key of an object member, unescaped.
[[nodiscard]] std::optional<std::string> jsonKey(std::string_view text, const JsonElement& member);
// The index of the last member named `key`: with duplicate keys, the last one is what a reader sees.
[[nodiscard]] std::optional<std::size_t> findJsonMember(std::string_view text, const JsonContainer& object,
                                                        std::string_view key);

}  // namespace vantrelle
