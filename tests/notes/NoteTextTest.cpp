#include <gtest/gtest.h>

#include "fakes/ScopedTimeZone.h"
#include "notes/ChangeLabel.h"
#include "notes/Note.h"

namespace vantrelle {
namespace {

std::string repeated(const std::string& text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i) out += text;
    return out;
}

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
        {"blank lines and spaces skipped", "\n  \n  Plan  \n\t\n  step one  \n", "Plan", "step one"},
        {"only blank lines", "\n   \n\t\n", "New note", ""},
        {"carriage returns split lines", "Title\r\nSecond\r\n", "Title", "Second"},
        {"wide spaces trimmed", "\u00A0\u3000Heading\u2003\nnext", "Heading", "next"},
        {"48 characters stay whole", forty8, forty8, ""},
        {"49 characters are cut to 47 and an ellipsis", forty9, std::string(47, 'b') + "…", ""},
        // Counted in characters, not bytes: 48 accented letters of two bytes each stay whole.
        {"multi-byte characters counted as characters", repeated("é", 48), repeated("é", 48), ""},
        {"an emoji sequence is one character when cut", std::string(46, 'x') + repeated("👩‍💻", 3),
         std::string(46, 'x') + "👩‍💻…", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(NoteText::title(c.body), c.title);
        EXPECT_EQ(NoteText::preview(c.body), c.preview);
    }
    EXPECT_TRUE(NoteText::isBlank(" \n\t\r\n\u00A0"));
    EXPECT_FALSE(NoteText::isBlank("\n.\n"));
}

TEST(NoteTextTest, ChangeLabelsReadInTheLocalCalendar) {
    testing::ScopedTimeZone zone("Europe/Berlin");
    const Date now{1'763'900'000.0};  // Sunday 2025-11-23 13:13:20 in Berlin
    const std::vector<std::pair<double, std::string>> cases = {
        {0, "13:13"},
        {-13 * 3600.0 - 13 * 60 - 20, "00:00"},      // the first second of today
        {-13 * 3600.0 - 13 * 60 - 21, "Yesterday"},  // the last of yesterday
        {-2 * 86400.0, "Fri"},
        {-7 * 86400.0, "16 Nov"},
        {-330 * 86400.0, "28 Dec 2024"},
        {3600, "14:13"},  // a clock set back: still today
    };
    for (const auto& [offset, label] : cases) {
        SCOPED_TRACE(label);
        EXPECT_EQ(changeLabel(now + offset, now), label);
    }
}

}  // namespace
}  // namespace vantrelle
