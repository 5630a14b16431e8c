#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "AgentsTestSupport.h"
#include "app/UsageReport.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using testing::claudeAssistant;

class UsageReportTest : public ::testing::Test {
protected:
    UsageReportTest() { testing::useTimeZone("UTC"); }

    // A log under the home, modified at `modified`.
    void log(const std::string& relative, const std::string& text, std::string_view modified) const {
        testing::setModified(home.write(relative, text), testing::iso(modified));
    }
    // The JSON report of the home as `vantrelle usage --json` gives it at `now`.
    nlohmann::json report(std::string_view now) const {
        std::string error;
        const auto options =
            parseUsageArguments({"--json", "--now", std::string(now), "--home", home.path().string()}, error);
        if (!options) {
            ADD_FAILURE() << error;
            return {};
        }
        return nlohmann::json::parse(usageReport(*options, environment));
    }

    testing::TempDir home;
    testing::TempDir config;
    MapEnvironment environment{{{"XDG_CONFIG_HOME", config.path().string()}}};
};

// The figures' rules are UsageSummaryTest's; here, that each part of the report carries them.
TEST_F(UsageReportTest, JsonCarriesEachPartOfTheSummary) {
    log(".claude/projects/p/s1.jsonl",
        R"({"type":"user","cwd":"/home/dev/shop","message":{"content":"hello"}})"
        "\n" +
            claudeAssistant("m1", "r1", 10, 5, "2030-01-01T10:00:00Z") +
            claudeAssistant("m2", "r2", 20, 5, "2029-12-30T10:00:00Z"),
        "2030-01-01T10:00:00Z");
    const auto json = report("2030-01-01T12:00:00Z");
    EXPECT_EQ(json["today"]["cacheWrite"], 4);
    EXPECT_EQ(json["daily"][0]["date"], "2029-12-30");
    EXPECT_EQ(json["block"]["start"], "2030-01-01T10:00:00.000Z");
    EXPECT_EQ(json["sessions"][0]["projectName"], "shop");

    // The user's budget setting holds in the report too; the settings file is only read.
    const std::string stored = R"({"aiBlockTokenBudget": 5000})";
    config.write("Vantrelle/defaults.json", stored);
    EXPECT_EQ(report("2030-01-01T12:00:00Z")["block"]["budget"], 5000);
    EXPECT_EQ(config.read("Vantrelle/defaults.json"), stored);
}

// A log whose name isn't UTF-8 and whose figures are at the top of the range.
TEST_F(UsageReportTest, OddNamesAreWrittenLossilyAndHugeCountsHoldAtTheTopEverywhere) {
    const std::string max = "9223372036854775807";
    log(".claude/projects/caf\xe9/s\xff.jsonl",
        claudeAssistant("m1", "r1", 1, 1, "2030-01-01T11:00:00Z") +
            R"({"type":"assistant","requestId":"r2","timestamp":"2030-01-01T11:30:00Z","message":{"id":"m2","usage":{"input_tokens":)" +
            max + R"(,"output_tokens":)" + max + "}}}\n" +
            R"({"type":"assistant","requestId":"r3","timestamp":"9999-01-01T00:00:00Z","message":{"id":"m3","usage":{"output_tokens":1}}})" +
            "\n",
        "2030-01-01T11:50:00Z");
    const auto json = report("2030-01-01T12:00:00Z");
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(json["today"]["output"], kMax);
    EXPECT_EQ(json["last7Days"][6]["tokens"], kMax);
    EXPECT_EQ(json["daily"][0]["input"], kMax);
    EXPECT_EQ(json["block"]["projectedTokens"], kMax);
    EXPECT_EQ(json["block"]["start"], "2030-01-01T11:00:00.000Z");  // not pinned by the line dated 9999
    EXPECT_EQ(json["skipped"]["futureLines"], 1);
    ASSERT_EQ(json["sessions"].size(), 1u);
    EXPECT_GE(json["sessions"][0]["tokens"].get<std::int64_t>(), 0);
    EXPECT_EQ(json["sessions"][0]["id"], "s\xef\xbf\xbd");
    const std::string url = json["sessions"][0]["logURL"];
    EXPECT_NE(url.find("caf\xef\xbf\xbd/s\xef\xbf\xbd.jsonl"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle
