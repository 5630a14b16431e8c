#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {
namespace {

class WrappedHistoryTest : public ::testing::Test {
protected:
    void SetUp() override { testing::useTimeZone("UTC"); }
    testing::TempDir dir;
    std::filesystem::path file = dir / "Vantrelle/wrapped-history.json";
    VirtualScheduler clock{testing::iso("2030-06-15T12:00:00Z")};
};

TEST_F(WrappedHistoryTest, StartsTrackingTodayAndPersistsAcrossRestarts) {
    {
        WrappedHistory history(file, clock, false);
        EXPECT_EQ(history.trackingSince(), testing::iso("2030-06-15T00:00:00Z"));
        history.recordFocusBlock(25);
        history.recordFocusBlock(-5);
        history.recordMeetingJoined();
    }
    WrappedHistory again(file, clock, false);
    EXPECT_EQ(again.trackingSince(), testing::iso("2030-06-15T00:00:00Z"));
    const auto& day = again.days().at("2030-06-15");
    EXPECT_EQ(day.focusBlocks, 2);
    EXPECT_EQ(day.focusMinutes, 25);
    EXPECT_EQ(day.meetingsJoined, 1);
}

TEST_F(WrappedHistoryTest, AITokensOnlyEverGrowLowerFiguresWriteNothingAndFourHundredDaysAreKept) {
    WrappedHistory history(file, clock, false);
    const Date day = testing::iso("2030-06-14T08:00:00Z");
    history.recordAITokens({{day, 500}, {testing::iso("2030-06-13T08:00:00Z"), 0}});
    EXPECT_EQ(history.days().at("2030-06-14").aiTokens, 500);
    EXPECT_FALSE(history.days().contains("2030-06-13"));
    std::filesystem::remove(file);
    history.recordAITokens({{day, 400}, {day, 500}});
    EXPECT_FALSE(std::filesystem::exists(file));  // nothing changed, nothing saved
    history.recordAITokens({{day, 800}});
    EXPECT_EQ(WrappedHistory(file, clock, false).days().at("2030-06-14").aiTokens, 800);

    // Four hundred days are kept.
    history.recordAITokens(
        {{testing::iso("2029-05-10T10:00:00Z"), 1}, {testing::iso("2029-05-11T10:00:00Z"), 2}});
    EXPECT_FALSE(history.days().contains("2029-05-10"));
    EXPECT_TRUE(history.days().contains("2029-05-11"));
}

TEST_F(WrappedHistoryTest, AnUnreadableFileIsMovedAsideAndTheHistoryStartsOver) {
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"a day misses a key", R"({"days":{"2030-06-01":{"focusBlocks":1}}})"},
        {"truncated", R"({"days":{"2030-06-01":{"focusBlo)"},
        {"nested 100,000 deep",
         R"({"days":{},"x":)" + std::string(100'000, '[') + std::string(100'000, ']') + "}"},
    };
    for (const auto& [name, contents] : cases) {
        testing::TempDir folder;
        const auto path = folder / "Vantrelle/wrapped-history.json";
        folder.write("Vantrelle/wrapped-history.json", contents);
        {
            WrappedHistory history(path, clock, false);
            EXPECT_TRUE(history.days().empty()) << name;
            EXPECT_EQ(history.trackingSince(), testing::iso("2030-06-15T00:00:00Z")) << name;
        }
        EXPECT_EQ(folder.read("Vantrelle/wrapped-history.json.unreadable-20300615T120000Z"), contents)
            << name;
    }
}

TEST_F(WrappedHistoryTest, DemoModeLeavesEvenAnUnreadableFileAsItWas) {
    const std::string original = R"({"days":{"2030-06-01":{"focusBlocks":1}}})";  // missing keys: undecodable
    dir.write("Vantrelle/wrapped-history.json", original);
    WrappedHistory demo(file, clock, true);
    demo.recordAITokens({{clock.now(), 99}});
    demo.recordFocusBlock(25);
    demo.recordMeetingJoined();
    EXPECT_EQ(dir.read("Vantrelle/wrapped-history.json"), original);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir / "Vantrelle"), {}), 1);
}

}  // namespace
}  // namespace vantrelle
