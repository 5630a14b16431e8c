#include <gtest/gtest.h>

#include "notes/Note.h"
#include "notes/Uuid.h"

namespace vantrelle {
namespace {

struct TitleCase {
    const char* name;
    std::string body;
    std::string title;
    std::string preview;
};

TEST(NoteTextTest, TitleAndPreviewComeFromTheFirstTwoFilledLines) {
    const std::string forty8(48, 'a');
    const std::string forty9(49, 'b');
    const std::vector<TitleCase> cases = {
        {"plain lines", "Groceries\nmilk\neggs", "Groceries", "milk"},
        {"blank lines and spaces skipped", "\n  \n  Plan  \n\t\n  step one  \n", "Plan", "step one"},
        {"only blank lines", "\n   \n\t\n", "New note", ""},
        {"empty body", "", "New note", ""},
        {"one line has no preview", "Solo", "Solo", ""},
        {"carriage returns split lines", "Title\r\nSecond\r\n", "Title", "Second"},
        {"wide spaces trimmed", "\u00A0\u3000Heading\u2003\nnext", "Heading", "next"},
        {"48 characters stay whole", forty8, forty8, ""},
        {"49 characters are cut to 47 and an ellipsis", forty9, std::string(47, 'b') + "…", ""},
        {"a long preview stays whole", "t\n" + forty9 + forty9, "t", forty9 + forty9},
        // Counted in characters, not bytes: 48 accented letters of two bytes each stay whole.
        {"multi-byte characters counted as characters",
         [] {
             std::string s;
             for (int i = 0; i < 48; ++i) s += "é";
             return s;
         }(),
         [] {
             std::string s;
             for (int i = 0; i < 48; ++i) s += "é";
             return s;
         }(),
         ""},
        {"an emoji sequence is one character when cut",
         [] {
             std::string s(46, 'x');
             for (int i = 0; i < 3; ++i) s += "👩‍💻";
             return s;
         }(),
         std::string(46, 'x') + "👩‍💻…", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(NoteText::title(c.body), c.title);
        EXPECT_EQ(NoteText::preview(c.body), c.preview);
    }
}

TEST(NoteTextTest, BlankMeansOnlyWhiteSpaceAndLineBreaks) {
    EXPECT_TRUE(NoteText::isBlank(""));
    EXPECT_TRUE(NoteText::isBlank(" \n\t\r\n\u00A0"));
    EXPECT_FALSE(NoteText::isBlank("\n.\n"));
}

TEST(NoteTextTest, UuidsAreVersionFourUpperCaseAndDistinct) {
    const std::string a = Uuid::make();
    const std::string b = Uuid::make();
    EXPECT_NE(a, b);
    ASSERT_EQ(Uuid::normalized(a), a);
    EXPECT_EQ(a[14], '4');
    EXPECT_NE(std::string("89AB").find(a[19]), std::string::npos);
    EXPECT_EQ(Uuid::normalized("6c1e0f3a-2b8d-4e7a-9c51-0d4f8a2b6e01"),
              "6C1E0F3A-2B8D-4E7A-9C51-0D4F8A2B6E01");
    for (const char* bad : {"", "6C1E0F3A2B8D4E7A9C510D4F8A2B6E01", "6C1E0F3A-2B8D-4E7A-9C51-0D4F8A2B6E0G",
                            "6C1E0F3A-2B8D-4E7A-9C51_0D4F8A2B6E01"}) {
        EXPECT_EQ(Uuid::normalized(bad), std::nullopt) << bad;
    }
}

}  // namespace
}  // namespace vantrelle
