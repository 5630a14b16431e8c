#include <gtest/gtest.h>

#include "agents/Graphemes.h"
#include "agents/PromptText.h"

namespace vantrelle {
namespace {

std::string repeat(std::string_view unit, int times) {
    std::string out;
    for (int i = 0; i < times; ++i) out += unit;
    return out;
}

TEST(GraphemesTest, CountsUserPerceivedCharacters) {
    EXPECT_EQ(Graphemes::count("e\u0301"), 1u);                                   // e + combining acute
    EXPECT_EQ(Graphemes::count("\U0001F469\u200D\U0001F4BB"), 1u);                // woman technologist
    EXPECT_EQ(Graphemes::count("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"), 2u);  // two flags
    EXPECT_EQ(Graphemes::count("\U0001F1E9\U0001F1EA\U0001F1EB"), 2u);  // a flag and a lone indicator
    EXPECT_EQ(Graphemes::count("\U0001F44D\U0001F3FD"), 1u);            // thumbs up, skin tone
    EXPECT_EQ(Graphemes::count("\r\n"), 1u);
    EXPECT_EQ(Graphemes::count("\u1100\u1161\u11A8"), 1u);  // Hangul jamo syllable
    EXPECT_EQ(Graphemes::count("a\xff"), 2u);               // an invalid byte is one
    EXPECT_EQ(Graphemes::prefixBytes("e\u0301x", 1), 3u);
}

TEST(PromptTextTest, NinetyCharactersStayWholeAndNinetyOneAreCut) {
    const std::string ninety = repeat("a", 90);
    EXPECT_EQ(cleanPrompt(ninety), ninety);
    const std::string cut = cleanPrompt(repeat("a", 91));
    EXPECT_EQ(cut, repeat("a", 89) + "\u2026");

    // Multi-codepoint characters count once each.
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
    const std::string accented = "e\u0301";
    EXPECT_EQ(cleanPrompt(repeat(family, 90)), repeat(family, 90));
    EXPECT_EQ(cleanPrompt(repeat(accented, 91)), repeat(accented, 89) + "\u2026");
    EXPECT_EQ(cleanPrompt(repeat("\U0001F1EB\U0001F1F7", 91)), repeat("\U0001F1EB\U0001F1F7", 89) + "\u2026");
}

}  // namespace
}  // namespace vantrelle
