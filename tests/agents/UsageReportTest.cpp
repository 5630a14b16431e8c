#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vantrelle
