#pragma once

#include <cstddef>
#include <string_view>

namespace vantrelle {

// How deep arrays and objects nest in `text`, counting brackets outside strings only. Stops at the
// first bracket past `limit` and returns limit + 1, so a hostile file costs one pass at most. Doesn't
// validate: it runs before a parser, whose DOM, copies and output would recurse once per level.
[[nodiscard]] std::size_t jsonNestingDepth(std::string_view text, std::size_t limit);

// The deepest nesting a JSON file of ours or of a tool we edit may have.
inline constexpr std::size_t kMaxJsonNesting = 512;

}  // namespace vantrelle
