#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace vantrelle {

// One plain-text note. It has no title of its own: title and preview come from the body.
struct Note {
    std::string id;  // an upper-case UUID
    std::string body;
    Date createdAt;
    Date updatedAt;
    bool operator==(const Note&) const = default;
};

// What the notes list shows of a note.
namespace NoteText {

inline constexpr std::string_view untitled = "New note";
// Titles this long or longer are cut, so a list row never wraps.
inline constexpr std::size_t kTitleCutAt = 49;
inline constexpr std::size_t kTitleKept = 47;

// The first line that isn't blank, trimmed; "New note" without one. Counted in user-perceived
// characters: a title of 49 or more becomes its first 47 and "…".
[[nodiscard]] std::string title(std::string_view body);
// The second line that isn't blank, trimmed and whole; empty without one.
[[nodiscard]] std::string preview(std::string_view body);
// Whether the text holds nothing but white space and line breaks.
[[nodiscard]] bool isBlank(std::string_view text);
// The text without white space (line breaks included) at either end.
[[nodiscard]] std::string_view trimmed(std::string_view text);

}  // namespace NoteText

}  // namespace vantrelle
