// The rules that turn a read line into events and session facts, driven with line records directly:
// these are the same for every build of the JSON readers.
#include <gtest/gtest.h>

#include <limits>

#include "AgentsTestSupport.h"
#include "agents/LogLineApply.h"

namespace vantrelle {
namespace {

using testing::iso;

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

class LogLineApplyTest : public ::testing::Test {
protected:
    LogLineApplyTest() { meta.sessionId = "s1"; }

    LogFileState state;
    AISessionMeta meta;
    LineSink sink;
    LineContext context{state, meta, sink, iso("2030-01-01T12:00:00Z")};

    static ClaudeLine assistant(std::string_view date, std::int64_t output) {
        ClaudeLine line;
        line.hasType = true, line.type = "assistant";
        line.hasDate = !date.empty(), line.date = date;
        line.messageIsObject = line.usageIsObject = true;
        line.hasMessageId = true, line.messageId = "m1";
        line.hasRequestId = true, line.requestId = "r1";
        line.hasModel = true, line.model = "claude-sonnet-4-5";
        line.input = 10, line.output = output, line.cacheRead = 3, line.cacheWrite = 4;
        return line;
    }

    static CodexLine tokenCount(std::int64_t input, std::int64_t output, std::int64_t cached,
                                std::string_view date = "2030-01-01T10:00:00Z") {
        CodexLine line;
        line.hasDate = true, line.date = date;
        line.hasType = true, line.type = "event_msg";
        line.payloadIsObject = true;
        line.hasPayloadType = true, line.payloadType = "token_count";
        line.infoIsObject = line.totalIsObject = true;
        line.input = input, line.output = output, line.cached = cached;
        return line;
    }
};

TEST_F(LogLineApplyTest, TheReplyKeyFallsBackToTheUuidAndIsEmptyWithNeither) {
    struct Row {
        const char* name;
        bool requestId, uuid;
        const char* key;
    };
    for (const Row& row : {Row{"request id", true, true, "m1|r1"}, Row{"uuid", false, true, "m1|u1"},
                           Row{"neither", false, false, ""}}) {
        SCOPED_TRACE(row.name);
        sink = {};
        ClaudeLine line = assistant("", 1);
        line.hasRequestId = row.requestId;
        line.hasUuid = row.uuid, line.uuid = "u1";
        applyClaude(line, context);
        ASSERT_EQ(sink.claudeReplies.size(), 1u);
        EXPECT_EQ(sink.claudeReplies[0].key, row.key);
        EXPECT_EQ(sink.claudeReplies[0].figures.time, context.now);  // no date: the moment of reading
    }
}

TEST_F(LogLineApplyTest, ALineDatedMoreThanADayAheadIsIgnoredAndCounted) {
    ClaudeLine future = assistant("2030-01-02T12:00:01Z", 5);
    future.hasCwd = true, future.cwd = "/elsewhere";
    applyClaude(future, context);
    EXPECT_TRUE(sink.claudeReplies.empty());
    EXPECT_EQ(meta.cwd, "");
    EXPECT_EQ(sink.problems.futureLines, 1);

    // Exactly a day ahead is a clock set a little fast, and still counts.
    applyClaude(assistant("2030-01-02T12:00:00Z", 5), context);
    EXPECT_EQ(sink.claudeReplies.size(), 1u);
    applyCodex(tokenCount(5, 5, 0, "9999-12-31T23:59:59Z"), context);
    EXPECT_TRUE(sink.events.empty());
    EXPECT_FALSE(state.codexLastTotal);  // ignored whole: the next line's delta still covers it
    EXPECT_EQ(sink.problems.futureLines, 2);
}

TEST_F(LogLineApplyTest, CodexCountersAtTheEndsOfTheRangeNeitherOverflowNorGoNegative) {
    applyCodex(tokenCount(kMin, kMin, kMin), context);
    EXPECT_TRUE(sink.events.empty());
    applyCodex(tokenCount(kMax, kMax, 0), context);
    ASSERT_EQ(sink.events.size(), 1u);
    EXPECT_EQ(sink.events[0].input, kMax);
    EXPECT_EQ(sink.events[0].totalTokens(), kMax);
    // Back down to the other end is a reset: nothing, and the next delta runs from there.
    applyCodex(tokenCount(kMin, 0, 0), context);
    applyCodex(tokenCount(7, 0, 0), context);
    ASSERT_EQ(sink.events.size(), 2u);
    EXPECT_EQ(sink.events[1].input, 7);
}

TEST_F(LogLineApplyTest, GeminiFiguresSaturateAndNegativeOnesCountAsZero) {
    GeminiLine line;
    line.message.hasType = true, line.message.type = "gemini";
    line.message.hasId = true, line.message.id = "g1";
    line.message.tokensIsObject = true;
    line.message.input = 100, line.message.cached = -30, line.message.output = kMax,
    line.message.thoughts = kMax;
    applyGemini(line, context);
    const auto& event = state.geminiEvents.at("g1");
    EXPECT_EQ(event.output, kMax);
    EXPECT_EQ(event.cacheRead, 0);
}

}  // namespace
}  // namespace vantrelle
