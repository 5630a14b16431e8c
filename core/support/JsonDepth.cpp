#include "support/JsonDepth.h"

namespace vantrelle {

bool exceedsJsonDepth(std::string_view text, int limit) {
    int depth = 0;
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
                if (++depth > limit) return true;
                break;
            case ']':
            case '}':
                if (depth > 0) --depth;
                break;
            default:
                break;
        }
    }
    return false;
}

}  // namespace vantrelle
