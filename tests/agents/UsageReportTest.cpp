#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <nlohmann/json.hpp>

#include "AgentsTestSupport.h"
#include "app/UsageReport.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

TEST(UsageReportTest, JsonHasEveryFigure) {
    testing::useTimeZone("UTC");
    testing::TempDir home;
    const auto file = home.write(".claude/projects/p/s1.jsonl",
                                 R"({"type":"user","cwd":"/home/dev/shop","message":{"content":"hello"}})"
                                 "\n" +
                                     testing::claudeAssistant("m1", "r1", 10, 5, "2030-01-01T10:00:00Z") +
                                     testing::claudeAssistant("m2", "r2", 20, 5, "2029-12-30T10:00:00Z"));
    testing::setModified(file, testing::iso("2030-01-01T10:00:00Z"));
    std::string error;
    auto options = parseUsageArguments(
        {"--json", "--now", "2030-01-01T12:00:00Z", "--home", home.path().string()}, error);
    ASSERT_TRUE(options) << error;
    testing::TempDir config;
    const MapEnvironment environment({{"XDG_CONFIG_HOME", config.path().string()}});
    const auto json = nlohmann::json::parse(usageReport(*options, environment));
    EXPECT_EQ(json["today"]["input"], 10);
    EXPECT_EQ(json["today"]["output"], 5);
    EXPECT_EQ(json["today"]["cacheRead"], 3);
    EXPECT_EQ(json["today"]["cacheWrite"], 4);
    EXPECT_EQ(json["today"]["messages"], 1);
    EXPECT_EQ(json["today"]["sessions"], 1);
    ASSERT_EQ(json["last7Days"].size(), 7u);
    EXPECT_EQ(json["last7Days"][6]["date"], "2030-01-01");
    EXPECT_EQ(json["last7Days"][6]["tokens"], 22);
    ASSERT_EQ(json["daily"].size(), 2u);
    EXPECT_EQ(json["daily"][0]["date"], "2029-12-30");
    EXPECT_EQ(json["daily"][0]["input"], 20);
    EXPECT_EQ(json["block"]["start"], "2030-01-01T10:00:00.000Z");
    EXPECT_EQ(json["block"]["tokens"], 22);
    EXPECT_EQ(json["block"]["budget"], 1'000'000);
    ASSERT_EQ(json["sessions"].size(), 1u);
    EXPECT_EQ(json["sessions"][0]["projectName"], "shop");
    EXPECT_EQ(json["sessions"][0]["title"], "hello");
    EXPECT_EQ(json["sessions"][0]["state"], "done");

    // The user's budget setting holds in the report too; the settings file is only read.
    const std::string stored = R"({"aiBlockTokenBudget": 5000})";
    config.write("Vantrelle/defaults.json", stored);
    const auto withBudget = nlohmann::json::parse(usageReport(*options, environment));
    EXPECT_EQ(withBudget["block"]["budget"], 5000);
    EXPECT_EQ(config.read("Vantrelle/defaults.json"), stored);

    EXPECT_FALSE(parseUsageArguments({"--now", "yesterday"}, error));
    EXPECT_FALSE(parseUsageArguments({"--bogus"}, error));
}

TEST(UsageReportTest, HelpAndAMissingHomeAreAnsweredBeforeAnyScan) {
    std::string error;
    for (const char* flag : {"--help", "-h"}) {
        SCOPED_TRACE(flag);
        const auto options = parseUsageArguments({"--json", flag, "--bogus"}, error);
        ASSERT_TRUE(options);
        EXPECT_TRUE(options->help);
    }
    EXPECT_NE(std::string_view(usageSynopsis()).find("--home <dir>"), std::string_view::npos);

    testing::TempDir home;
    EXPECT_FALSE(parseUsageArguments({"--home", (home / "missing").string()}, error));
    EXPECT_EQ(error, "--home " + (home / "missing").string() + ": no such folder");
    const auto file = home.write("plain-file", "x");
    EXPECT_FALSE(parseUsageArguments({"--home", file.string()}, error));
    EXPECT_TRUE(parseUsageArguments({"--home", home.path().string()}, error));
}

TEST(UsageReportTest, NamesThatAreNotUtf8AreWrittenLossily) {
    testing::useTimeZone("UTC");
    testing::TempDir home;
    const std::string folder = ".claude/projects/caf\xe9";
    const auto file = home.write(folder + "/s\xff.jsonl",
                                 testing::claudeAssistant("m1", "r1", 10, 5, "2030-01-01T11:59:00Z"));
    testing::setModified(file, testing::iso("2030-01-01T11:59:00Z"));
    std::string error;
    const auto options = parseUsageArguments(
        {"--json", "--now", "2030-01-01T12:00:00Z", "--home", home.path().string()}, error);
    ASSERT_TRUE(options) << error;
    testing::TempDir config;
    const MapEnvironment environment({{"XDG_CONFIG_HOME", config.path().string()}});
    const auto json = nlohmann::json::parse(usageReport(*options, environment));
    ASSERT_EQ(json["sessions"].size(), 1u);
    EXPECT_EQ(json["sessions"][0]["id"], "s\xef\xbf\xbd");
    const std::string url = json["sessions"][0]["logURL"];
    EXPECT_NE(url.find("caf\xef\xbf\xbd/s\xef\xbf\xbd.jsonl"), std::string::npos);
    EXPECT_EQ(json["today"]["output"], 5);
}

TEST(UsageReportTest, HugeCountsHoldAtTheTopEverywhereAndNothingTurnsNegative) {
    testing::useTimeZone("UTC");
    testing::TempDir home;
    const std::string max = "9223372036854775807";
    const auto claude = home.write(
        ".claude/projects/p/s1.jsonl",
        testing::claudeAssistant("m1", "r1", 1, 1, "2030-01-01T11:00:00Z") +
            R"({"type":"assistant","requestId":"r2","timestamp":"2030-01-01T11:30:00Z","message":{"id":"m2","usage":{"input_tokens":)" +
            max + R"(,"output_tokens":)" + max + "}}}\n" +
            R"({"type":"assistant","requestId":"r3","timestamp":"9999-01-01T00:00:00Z","message":{"id":"m3","usage":{"output_tokens":1}}})" +
            "\n");
    const auto codex = home.write(
        ".codex/sessions/2030/rollout-1.jsonl",
        R"({"timestamp":"2030-01-01T11:40:00Z","type":"event_msg","payload":{"type":"token_count","info":{"total_token_usage":{"input_tokens":-9223372036854775808,"output_tokens":0}}}})"
        "\n"
        R"({"timestamp":"2030-01-01T11:50:00Z","type":"event_msg","payload":{"type":"token_count","info":{"total_token_usage":{"input_tokens":)" +
            max + "}}}}\n");
    for (const auto& file : {claude, codex}) testing::setModified(file, testing::iso("2030-01-01T11:50:00Z"));
    std::string error;
    const auto options = parseUsageArguments(
        {"--json", "--now", "2030-01-01T12:00:00Z", "--home", home.path().string()}, error);
    ASSERT_TRUE(options) << error;
    testing::TempDir config;
    const MapEnvironment environment({{"XDG_CONFIG_HOME", config.path().string()}});
    const auto json = nlohmann::json::parse(usageReport(*options, environment));
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(json["today"]["input"], kMax);
    EXPECT_EQ(json["today"]["output"], kMax);
    EXPECT_EQ(json["today"]["messages"], 3);
    EXPECT_EQ(json["last7Days"][6]["tokens"], kMax);
    EXPECT_EQ(json["daily"][0]["input"], kMax);
    EXPECT_EQ(json["block"]["tokens"], kMax);
    EXPECT_EQ(json["block"]["projectedTokens"], kMax);
    EXPECT_EQ(json["block"]["start"], "2030-01-01T11:00:00.000Z");  // not pinned by the line dated 9999
    EXPECT_EQ(json["skipped"]["futureLines"], 1);
    for (const auto& session : json["sessions"]) EXPECT_GE(session["tokens"].get<std::int64_t>(), 0);
}

TEST(UsageReportTest, AStreamedReplyCopiedIntoAResumedSessionCountsOnceEverywhere) {
    testing::useTimeZone("UTC");
    testing::TempDir home;
    const auto prompt = [](std::string_view date, std::string_view text) {
        return R"({"type":"user","timestamp":")" + std::string(date) + R"(","message":{"content":")" +
               std::string(text) + "\"}}\n";
    };
    const std::string reply = testing::claudeAssistant("m1", "r1", 10, 3, "2030-01-01T10:00:00Z") +
                              testing::claudeAssistant("m1", "r1", 10, 9, "2030-01-01T10:00:00Z") +
                              testing::claudeAssistant("m1", "r1", 10, 159, "2030-01-01T10:00:00Z");
    const auto older =
        home.write(".claude/projects/p/older.jsonl", prompt("2030-01-01T09:59:00Z", "first") + reply);
    const auto resumed =
        home.write(".claude/projects/p/resumed.jsonl",
                   prompt("2030-01-01T09:59:00Z", "first") + reply + prompt("2030-01-01T11:00:00Z", "again") +
                       testing::claudeAssistant("m2", "r2", 1, 1, "2030-01-01T11:00:01Z"));
    for (const auto& file : {older, resumed})
        testing::setModified(file, testing::iso("2030-01-01T11:00:01Z"));
    std::string error;
    const auto options = parseUsageArguments(
        {"--json", "--now", "2030-01-01T11:01:00Z", "--home", home.path().string()}, error);
    ASSERT_TRUE(options) << error;
    testing::TempDir config;
    const MapEnvironment environment({{"XDG_CONFIG_HOME", config.path().string()}});
    const auto json = nlohmann::json::parse(usageReport(*options, environment));
    EXPECT_EQ(json["today"]["output"], 160);
    EXPECT_EQ(json["today"]["messages"], 2);
    EXPECT_EQ(json["last7Days"][6]["tokens"], (10 + 159 + 3 + 4) + (1 + 1 + 3 + 4));
    EXPECT_EQ(json["block"]["tokens"], (10 + 159 + 3 + 4) + (1 + 1 + 3 + 4));
    std::map<std::string, std::pair<std::int64_t, std::int64_t>> sessions;  // messages, tokens
    for (const auto& session : json["sessions"])
        sessions[session["id"]] = {session["messages"], session["tokens"]};
    // Equal starts: the path that sorts first, older.jsonl, owns the shared reply.
    EXPECT_EQ(sessions["older"], std::make_pair(std::int64_t{1}, std::int64_t{10 + 159 + 3 + 4}));
    EXPECT_EQ(sessions["resumed"], std::make_pair(std::int64_t{1}, std::int64_t{1 + 1 + 3 + 4}));
}

}  // namespace
}  // namespace vantrelle
