#pragma once

#include <string>
#include <string_view>

namespace vantrelle {

// Makes a prompt, title or summary fit one line: line feeds become blanks, white space is trimmed
// from both ends, and text longer than 90 characters keeps its first 89 and gains "…". Characters
// are user-perceived characters, not bytes.
[[nodiscard]] std::string cleanPrompt(std::string_view text);

// Trims Unicode white space and line breaks from both ends.
[[nodiscard]] std::string_view trimWhitespace(std::string_view text);

}  // namespace vantrelle
