#include "support/JsonNesting.h"

namespace vantrelle {

std::size_t jsonNestingDepth(std::string_view text, std::size_t limit) {
    std::size_t depth = 0;
    std::size_t deepest = 0;
    bool inString = false;
    bool escaped = false;
    for (const char c : text) {
        if (inString) {
            if (escaped) {
                escaped = false;
            } else if (c == '\\') {
                escaped = true;
            } else if (c == '"') {
                inString = false;
            }
            continue;
        }
        switch (c) {
            case '"':
                inString = true;
                break;
            case '[':
            case '{':
                if (++depth > deepest) {
                    deepest = depth;
                    if (deepest > limit) return limit + 1;
                }
                break;
            case ']':
            case '}':
                if (depth > 0) --depth;
                break;
            default:
                break;
        }
    }
    return deepest;
}

}  // namespace vantrelle
