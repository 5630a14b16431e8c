#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "agents/ClaudeReplies.h"

namespace vantrelle {
namespace {

using testing::iso;

// Adds one line of a reply to `replies`.
void line(ClaudeReplies& replies, std::uint32_t file, std::string key, std::int64_t output,
          std::string_view date, std::int64_t input = 10, std::string_view model = "claude-sonnet-4-5") {
    ReplyFigures figures;
    figures.time = iso(date);
    figures.output = output;
    figures.input = input;
    replies.add(file, std::move(key), figures, model);
}

std::vector<AIUsageEvent> events(const ClaudeReplies& replies) {
    std::vector<AIUsageEvent> out;
    replies.forEach([&](const ClaudeReplies::Reply& reply) { out.push_back(replies.event(reply)); });
    return out;
}

TEST(ClaudeRepliesTest, AStreamedReplyIsOneEventAtItsFinalSizeAndKeylessLinesStandAlone) {
    ClaudeReplies replies;
    line(replies, 1, "m|r", 3, "2030-01-01T10:00:00Z", 50);
    line(replies, 1, "m|r", 9, "2030-01-01T10:00:01Z", 20);
    line(replies, 1, "m|r", 159, "2030-01-01T10:00:02Z", 20, "claude-opus-4-8");
    // Among lines with the most output the earliest gives the date.
    line(replies, 2, "n|s", 159, "2030-01-02T00:00:05Z");  // a copy in a later session, after midnight
    line(replies, 1, "n|s", 159, "2030-01-01T23:59:59Z");
    line(replies, 1, "n|s", 100, "2030-01-01T23:00:00Z");
    line(replies, 1, "", 1, "2030-01-01T10:00:00Z");
    line(replies, 1, "", 1, "2030-01-01T10:00:00Z");
    const auto found = events(replies);
    ASSERT_EQ(found.size(), 4u);
    EXPECT_EQ(found[0].output, 159);
    EXPECT_EQ(found[0].input, 50);  // each figure is the largest on any line
    EXPECT_EQ(found[0].timestamp, iso("2030-01-01T10:00:02Z"));
    EXPECT_EQ(found[0].model, "claude-opus-4-8");
    EXPECT_EQ(found[1].timestamp, iso("2030-01-01T23:59:59Z"));
}

TEST(ClaudeRepliesTest, AFileThatGoesTakesOnlyItsOwnLines) {
    ClaudeReplies replies;
    line(replies, 1, "a|1", 3, "2030-01-01T10:00:00Z");
    line(replies, 2, "a|1", 159, "2030-01-01T10:00:02Z");
    line(replies, 2, "b|2", 5, "2030-01-01T11:00:00Z");
    replies.dropFile(2);
    ASSERT_EQ(events(replies).size(), 1u);
    EXPECT_EQ(events(replies)[0].output, 3);  // the larger line went with its file

    // A key seen again after its last file went is a new reply.
    replies.dropFile(1);
    line(replies, 3, "a|1", 7, "2030-01-01T10:00:00Z");
    ASSERT_EQ(events(replies).size(), 1u);
    EXPECT_EQ(events(replies)[0].output, 7);
}

TEST(ClaudeRepliesTest, ManyGoneRepliesAreCompactedWithoutChangingOrderOrLookups) {
    ClaudeReplies replies;
    for (int i = 0; i < 3000; ++i) {
        const std::uint32_t file = i % 3 == 0 ? 1 : 2;  // a third stays
        line(replies, file, "k" + std::to_string(i), i, "2030-01-01T10:00:00Z");
    }
    replies.dropFile(2);
    auto found = events(replies);
    ASSERT_EQ(found.size(), 1000u);
    for (std::size_t i = 1; i < found.size(); ++i) ASSERT_LT(found[i - 1].output, found[i].output);
    // The index still finds the kept keys.
    line(replies, 1, "k2997", 5000, "2030-01-01T10:00:00Z");
    found = events(replies);
    ASSERT_EQ(found.size(), 1000u);
    EXPECT_EQ(found.back().output, 5000);
}

}  // namespace
}  // namespace vantrelle
