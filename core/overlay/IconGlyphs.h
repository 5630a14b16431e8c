#pragma once

#include <string_view>

namespace vantrelle {

// The shell draws its symbols with the Material Icons font that Debian ships. This maps the symbol
// names used throughout the program to code points of that font; an unknown name gets a question mark.
[[nodiscard]] char32_t iconGlyph(std::string_view symbol);
[[nodiscard]] bool hasIconGlyph(std::string_view symbol);

}  // namespace vantrelle
