#pragma once

#include <string_view>

namespace vantrelle {

// Deeper than any file of ours or of the tools we read needs; far below what a recursive walk of the
// parsed value (printing it, comparing it) can take on the stack.
inline constexpr int kMaxJsonDepth = 512;

// Whether the arrays and objects of a JSON text nest deeper than `limit`. A byte scan that never
// recurses, so that text nested 100,000 deep is turned away before any parser or printer sees it.
// Brackets inside strings don't count; the text need not be valid JSON.
[[nodiscard]] bool exceedsJsonDepth(std::string_view text, int limit);

}  // namespace vantrelle
