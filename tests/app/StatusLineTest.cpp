#include <gtest/gtest.h>

#include "app/StatusLine.h"
#include "fakes/ScopedTimeZone.h"
#include "support/LocalCalendar.h"

namespace vantrelle {
namespace {

const Date kNow{1'800'000'000};

StatusFigures figuresAt(Date made) {
    StatusFigures figures;
    figures.generatedAt = made;
    figures.dayKey = LocalCalendar::dayKey(made);
    figures.today = {2'000'000, 12.5};
    figures.block = AIBlockUsage{kNow - 3600, 850'000, 4.25, kNow - 60, 1'000'000, 14'166.7, 4'250'000};
    figures.sessions["s1"] = {300'000, 1.75};
    figures.sessionModels["s1"] = "claude-opus-4";
    return figures;
}

// Each source answers what the case says and counts its calls.
struct Sources {
    std::optional<StatusFigures> app, file;
    std::optional<TranscriptFigures> transcript;
    int transcriptReads = 0;
    StatusSources get() {
        return {[this](const std::string&) { return app; }, [this] { return file; },
                [this](const std::filesystem::path&) {
                    ++transcriptReads;
                    return transcript;
                }};
    }
};

TEST(StatusLineTest, InputVariantsAreReadWhateverTheirShape) {
    struct Case {
        const char* input;
        bool understood;
        const char* session;
        const char* model;
        const char* cwd;
    };
    const Case cases[] = {
        {R"({"session_id":"s1","model":{"id":"claude-opus-4","display_name":"Opus"},"workspace":{"current_dir":"/w"},
            "cwd":"/c","transcript_path":"/t.jsonl","extra":{"x":[1]}})",
         true, "s1", "Opus", "/w"},
        {R"({"session_id":"s1","cwd":"/c"})", true, "s1", "", "/c"},
        {R"({"session_id":5,"model":"claude-haiku","workspace":[]})", true, "", "claude-haiku", ""},
        {"not json at all \x01\xff", false, "", "", ""},
    };
    for (const auto& c : cases) {
        const auto input = parseStatusInput(c.input);
        EXPECT_EQ(input.understood, c.understood) << c.input;
        EXPECT_EQ(input.sessionId, c.session) << c.input;
        EXPECT_EQ(input.modelName.empty() ? input.modelId : input.modelName, c.model) << c.input;
        EXPECT_EQ(input.cwd, c.cwd) << c.input;
    }
}

TEST(StatusLineTest, SourcesAreTriedInOrderAndTheTranscriptOnlyForAnUnknownSession) {
    struct Case {
        const char* name;
        bool app, file, transcript;
        const char* session;
        StatusSource source;
        int transcriptReads;
        std::optional<double> sessionCost;
    };
    const Case cases[] = {
        {"app running", true, true, true, "s1", StatusSource::app, 0, 1.75},
        {"channel absent", false, true, true, "s1", StatusSource::file, 0, 1.75},
        {"unknown session", true, false, true, "new", StatusSource::app, 1, 0.5},
        {"nothing but the log", false, false, true, "s1", StatusSource::transcript, 1, 0.5},
        {"nothing at all", false, false, false, "s1", StatusSource::none, 1, std::nullopt},
    };
    for (const auto& c : cases) {
        Sources sources;
        if (c.app) sources.app = figuresAt(kNow);
        if (c.file) sources.file = figuresAt(kNow - 30);
        if (c.transcript) sources.transcript = TranscriptFigures{{10, 0.5}, "claude-sonnet-4"};
        StatusInput input;
        input.sessionId = c.session;
        input.transcript = "/t.jsonl";
        const auto facts = gatherStatus(input, sources.get(), kNow);
        EXPECT_EQ(facts.source, c.source) << c.name;
        EXPECT_EQ(sources.transcriptReads, c.transcriptReads) << c.name;
        EXPECT_EQ(facts.session ? std::optional(facts.session->cost) : std::nullopt, c.sessionCost) << c.name;
    }
}

TEST(StatusLineTest, StaleFiguresSayNothingOfTodayOrOfAClosedWindow) {
    const testing::ScopedTimeZone zone("UTC");
    Sources sources;
    sources.file = figuresAt(kNow - 86400);  // yesterday's file
    sources.file->block->start = kNow - 6 * 3600;
    sources.file->block->lastActivity = kNow - 5 * 3600 - 1;
    const auto stale = gatherStatus({}, sources.get(), kNow);
    EXPECT_FALSE(stale.today);
    EXPECT_FALSE(stale.block);

    sources.file = figuresAt(kNow - 600);  // ten minutes old: the window's time left runs on
    const auto recent = gatherStatus({}, sources.get(), kNow);
    ASSERT_TRUE(recent.block);
    EXPECT_DOUBLE_EQ(recent.secondsLeft, 4 * 3600);
}

TEST(StatusLineTest, TheLineIsCompactAndFollowsATemplate) {
    Sources sources;
    sources.app = figuresAt(kNow);
    StatusInput input = parseStatusInput(R"({"session_id":"s1","model":{"display_name":"Opus\n4"}})");
    const auto facts = gatherStatus(input, sources.get(), kNow);
    EXPECT_EQ(formatStatusLine(facts, std::nullopt, false),
              "Opus 4 | $1.75 session | $12.50 today | $4.25 block 85%, 4h 0m left | 14.2k/min");
    EXPECT_EQ(formatStatusLine(facts, std::string("{model}: {session_cost}/{today_tokens} {nope}\n{"), false),
              "Opus 4: $1.75/2.00M {nope} {");

    EXPECT_EQ(formatStatusLine(StatusFacts{}, std::nullopt, false), "Vantrelle: no usage figures yet");
    EXPECT_EQ(formatStatusLine(StatusFacts{}, std::string("{model} {time_left}"), false), "- -");
}

}  // namespace
}  // namespace vantrelle
