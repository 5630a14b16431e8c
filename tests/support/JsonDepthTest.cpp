#include <gtest/gtest.h>

#include "support/JsonDepth.h"

namespace vantrelle {
namespace {

std::string nested(int depth) {
    return std::string(static_cast<std::size_t>(depth), '[') +
           std::string(static_cast<std::size_t>(depth), ']');
}

TEST(JsonDepth, CountsBracketsOutsideStringsOnly) {
    struct Case {
        const char* name;
        std::string text;
        int limit;
        bool exceeds;
    };
    const Case cases[] = {
        {"exactly at the limit", nested(3), 3, false},
        {"one past the limit, objects and arrays mixed", R"({"a": [{"b": [1]}]})", 3, true},
        {"brackets inside a string", R"({"a": "[[[[{{{{"})", 1, false},
        {"an escaped quote does not end the string", R"({"a": "\"[[[["})", 1, false},
        {"an escaped backslash before the closing quote", R"({"a": "\\", "b": [[1]]})", 2, true},
        {"closing brackets first never go below zero", "]]]]" + nested(2), 2, false},
    };
    for (const Case& c : cases) EXPECT_EQ(exceedsJsonDepth(c.text, c.limit), c.exceeds) << c.name;
}

}  // namespace
}  // namespace vantrelle
