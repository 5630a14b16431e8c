#pragma once

#include <cstddef>
#include <string_view>

namespace vantrelle {

// User-perceived characters (extended grapheme clusters) of UTF-8 text: combining marks stay with
// their base, emoji joined by ZWJ, with skin tones or variation selectors are one character, and a
// pair of regional indicators (a flag) is one. Invalid bytes count one character each.
namespace Graphemes {

// The number of characters, counting at most `limit` of them (the count stops there).
[[nodiscard]] std::size_t count(std::string_view text, std::size_t limit = static_cast<std::size_t>(-1));

// The length in bytes of the first `characters` characters of `text` (all of it if it has fewer).
[[nodiscard]] std::size_t prefixBytes(std::string_view text, std::size_t characters);

}  // namespace Graphemes

}  // namespace vantrelle
