#include <gtest/gtest.h>

#include <limits>

#include "agents/StatusFiguresPublisher.h"
#include "agents/TranscriptFigures.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::TempDir;

AIUsageEvent event(Date at, std::string session, std::string model, std::int64_t output,
                   AgentTool tool = AgentTool::claudeCode) {
    AIUsageEvent e;
    e.timestamp = at;
    e.sessionId = std::move(session);
    e.model = std::move(model);
    e.output = output;
    e.tool = tool;
    return e;
}

TEST(StatusFiguresTest, SessionsCountTheirWholeLogAndTheWindowSplitsByModelWithoutGemini) {
    const Date now{1'800'000'000};
    const AILogSnapshot::Events events{
        event(now - 3 * 86400, "old-and-recent", "claude-sonnet-4", 100),
        event(now - 600, "old-and-recent", "claude-sonnet-4", 50),
        event(now - 3 * 86400, "only-old", "claude-opus-4", 7),
        event(now - 300, "gem", "gemini-2.5-pro", 9, AgentTool::gemini),
        event(now - 200, "new", "claude-opus-4", 20),
    };
    AIBlockUsage block{now - 3600, 70, 0, now - 200, 1000, 1, 300};
    const auto figures = makeStatusFigures(events, now, AITotals{}, block);
    EXPECT_EQ(figures.sessions.at("old-and-recent").tokens, 150);
    EXPECT_FALSE(figures.sessions.contains("only-old"));
    EXPECT_FALSE(figures.models.contains("gemini-2.5-pro"));

    const auto back = parseStatusFigures(statusFiguresJson(figures));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, figures);
}

TEST(StatusFiguresTest, TextThatIsNotFiguresGivesNothingAndOddFieldsKeepDefaults) {
    for (const char* text : {"", "[]", "{}", "{\"generatedAt\":"})
        EXPECT_FALSE(parseStatusFigures(text)) << text;
    const auto odd =
        parseStatusFigures(R"({"generatedAt":"x","today":{"tokens":"many","cost":2.5},"sessions":[1]})");
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->today.tokens, 0);
    EXPECT_EQ(odd->today.cost, 2.5);
}

TEST(StatusFiguresTest, PublisherWritesOnceAfterTheDebounce) {
    VirtualScheduler scheduler;
    std::vector<std::string> writes;
    StatusFiguresPublisher publisher("/nowhere/statusline.json", scheduler,
                                     [&](const std::filesystem::path&, const std::string& text) {
                                         writes.push_back(text);
                                         return true;
                                     });
    StatusFigures figures;
    figures.today.cost = 1;
    publisher.update(figures);
    figures.today.cost = 2;
    publisher.update(figures);
    scheduler.advance(StatusFiguresPublisher::kDebounceSeconds - 0.1);
    EXPECT_TRUE(writes.empty());
    scheduler.advance(0.2);
    ASSERT_EQ(writes.size(), 1u);
    EXPECT_EQ(parseStatusFigures(writes[0])->today.cost, 2);

    figures.today.cost = 3;
    publisher.update(figures);
    publisher.flush();
    EXPECT_EQ(writes.size(), 2u);
}

// A streamed reply counts once at its final size, as the usage panel counts it (was: its first line).
TEST(StatusFiguresTest, ATranscriptCountsEachReplyOnceAndSkipsWhatItCannotRead) {
    TempDir dir;
    const auto file = dir.write("s.jsonl", R"({"type":"user","message":{"content":"hi"}}
{"type":"assistant","requestId":"r1","message":{"id":"m1","model":"claude-opus-4","usage":{"output_tokens":10}}}
{"type":"assistant","requestId":"r1","message":{"id":"m1","model":"claude-opus-4","usage":{"output_tokens":99}}}
not json "usage"
{"type":"assistant","message":{"id":"m2","model":"claude-haiku-4","usage":{"input_tokens":5,"output_tokens":"x"}}}
{"type":"assistant","requestId":"r3","message":{"id":"m3","model":"claude-opus-4","usage":{"cache_read_input_tokens":4}}})");
    const auto figures = readTranscriptFigures(file);
    ASSERT_TRUE(figures);
    EXPECT_EQ(figures->amount.tokens, 99 + 5 + 4);
    EXPECT_EQ(figures->model, "claude-opus-4");
    EXPECT_FALSE(readTranscriptFigures(dir / "missing.jsonl"));
    EXPECT_FALSE(readTranscriptFigures(dir.path()));
    EXPECT_FALSE(readTranscriptFigures(file, 10));

    // Figures at the top of the range add up to the top, not past it.
    const std::string huge =
        R"({"type":"assistant","message":{"usage":{"output_tokens":9223372036854775807}}})";
    const auto top = readTranscriptFigures(dir.write("huge.jsonl", huge + "\n" + huge));
    ASSERT_TRUE(top);
    EXPECT_EQ(top->amount.tokens, std::numeric_limits<std::int64_t>::max());
}

}  // namespace
}  // namespace vantrelle
