#include <gtest/gtest.h>

#include <filesystem>

#include "fakes/FakeScreenActivity.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "monitors/ScreenTimeTracker.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

const FrontmostApp kEditor{"code", "Visual Studio Code", "/usr/share/code/code"};
const FrontmostApp kTerminal{"org.gnome.Terminal", "Terminal", "/usr/bin/gnome-terminal"};
const FrontmostApp kBrowser{"org.mozilla.firefox", "Firefox", ""};

// 2027-01-15 08:00:00 UTC.
constexpr Date kMorning{1'800'000'000.0};
// 23:59:40 the evening before.
constexpr Date kBeforeMidnight{1'800'000'000.0 - 8 * 3600 - 20};

class ScreenTimeTrackerTest : public ::testing::Test {
protected:
    explicit ScreenTimeTrackerTest(Date start = kMorning) : clock(start) { activity.front = kEditor; }

    ScreenTimeTracker& make(bool demo = false) {
        tracker = std::make_unique<ScreenTimeTracker>(
            ScreenTimeTracker::Deps{clock, clock, activity, dir / "screentime", demo});
        tracker->start();
        return *tracker;
    }
    [[nodiscard]] double secondsOf(const std::string& id) const {
        for (const auto& usage : tracker->today()) {
            if (usage.id == id) return usage.seconds;
        }
        return 0;
    }
    [[nodiscard]] std::optional<ScreenTimeDay> file(const std::string& key) const {
        return decodeScreenTimeDay(dir.read("screentime/" + key + ".json"));
    }

    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler clock;
    testing::FakeScreenActivity activity;
    std::unique_ptr<ScreenTimeTracker> tracker;
};

TEST_F(ScreenTimeTrackerTest, ASwitchCreditsTheTimeSinceTheLastTickToTheLeavingApp) {
    make();
    clock.advance(15);
    EXPECT_DOUBLE_EQ(secondsOf("code"), 15);
    clock.advance(4);
    tracker->switchTo(kTerminal);
    EXPECT_DOUBLE_EQ(secondsOf("code"), 19);
    clock.advance(11);  // the tick at 30 s
    EXPECT_DOUBLE_EQ(secondsOf("org.gnome.Terminal"), 11);
}

TEST_F(ScreenTimeTrackerTest, AGapOfAMinuteOrATickFromTwoMinutesIdleIsThrownAway) {
    make();
    clock.setNow(clock.now() + 61);
    tracker->tick();
    EXPECT_DOUBLE_EQ(secondsOf("code"), 0);
    clock.setNow(clock.now() + 59.5);
    tracker->tick();
    EXPECT_DOUBLE_EQ(secondsOf("code"), 59.5) << "counted from the reset tick, not from the start";
    activity.idle = 119;
    clock.setNow(clock.now() + 15);
    tracker->tick();
    EXPECT_DOUBLE_EQ(secondsOf("code"), 74.5);
    activity.idle = 120;
    clock.setNow(clock.now() + 15);
    tracker->tick();
    EXPECT_DOUBLE_EQ(secondsOf("code"), 74.5);
}

TEST_F(ScreenTimeTrackerTest, AFlickShorterThanTwoSecondsIsNoSessionButItsTimeCounts) {
    make();
    clock.advance(1.9);
    tracker->switchTo(kTerminal);
    EXPECT_TRUE(tracker->sessions().empty());
    EXPECT_NEAR(secondsOf("code"), 1.9, 1e-6);  // dates are epoch seconds: a microsecond is their grain
    clock.advance(8);
    tracker->switchTo(kBrowser);
    EXPECT_EQ(tracker->sessions(), std::vector<double>{8});
    clock.advance(4);
    tracker->switchTo(kEditor);  // 4 s closed; the running session is still under 2 s
    EXPECT_DOUBLE_EQ(tracker->averageSessionSeconds(), 6);
    EXPECT_DOUBLE_EQ(tracker->longestSessionSeconds(), 8);
    EXPECT_NEAR(tracker->totalSeconds(), 13.9, 1e-6);
}

TEST_F(ScreenTimeTrackerTest, OurOwnPanelLockAndSleepStopCountingAndUnlockTakesTheFrontAgain) {
    make();
    clock.advance(5);
    tracker->switchTo(FrontmostApp{"vantrelle", "Vantrelle", ""});
    EXPECT_FALSE(tracker->current());
    EXPECT_EQ(tracker->sessions(), std::vector<double>{5});
    clock.advance(10);
    tracker->switchTo(kEditor);
    clock.advance(15);
    tracker->setLocked(true);
    clock.advance(45);
    EXPECT_DOUBLE_EQ(tracker->totalSeconds(), 20);
    activity.front = kBrowser;
    tracker->setLocked(false);
    EXPECT_EQ(tracker->current()->id, "org.mozilla.firefox");
    tracker->setAsleep(true);
    clock.advance(30);
    tracker->setAsleep(false);
    clock.advance(15);
    EXPECT_DOUBLE_EQ(secondsOf("org.mozilla.firefox"), 15);
}

TEST_F(ScreenTimeTrackerTest, FlushesAtMostOnceAMinuteAndAtQuitAndARestartContinuesTheDay) {
    make();
    clock.advance(15);
    EXPECT_FALSE(tracker->isDirty()) << "the first tick flushes: nothing was ever written";
    EXPECT_DOUBLE_EQ(file(tracker->dayKey())->at("code").seconds, 15);
    clock.advance(45);
    EXPECT_TRUE(tracker->isDirty());
    clock.advance(15);
    EXPECT_FALSE(tracker->isDirty());
    EXPECT_DOUBLE_EQ(file(tracker->dayKey())->at("code").seconds, 75);
    clock.advance(15);
    tracker->flushNow();
    EXPECT_EQ(file(tracker->dayKey())->at("code"),
              (ScreenTimeEntry{"Visual Studio Code", 90, "/usr/share/code/code"}));

    tracker.reset();
    activity.front = kTerminal;
    make();
    clock.advance(15);
    EXPECT_DOUBLE_EQ(secondsOf("code"), 90);
    EXPECT_DOUBLE_EQ(secondsOf("org.gnome.Terminal"), 15);
}

TEST_F(ScreenTimeTrackerTest, AFailedFlushKeepsTheUnsavedSecondsForTheNextTry) {
    make();
    const auto target = dir / "screentime" / (tracker->dayKey() + ".json");
    std::filesystem::create_directories(target / "blocker");  // a folder where the file should go
    clock.advance(15);
    EXPECT_TRUE(tracker->isDirty());
    std::filesystem::remove_all(target);
    clock.advance(15);
    EXPECT_FALSE(tracker->isDirty());
    EXPECT_DOUBLE_EQ(file(tracker->dayKey())->at("code").seconds, 30);
}

TEST_F(ScreenTimeTrackerTest, AnUnreadableDayFileIsMovedAsideNotOverwritten) {
    dir.write("screentime/2027-01-15.json", "{ not json");
    make();
    clock.advance(15);
    EXPECT_EQ(testing::unreadableCopies(dir / "screentime/2027-01-15.json").size(), 1u);
    EXPECT_DOUBLE_EQ(file("2027-01-15")->at("code").seconds, 15);
}

TEST_F(ScreenTimeTrackerTest, UsageSumsDayFilesAndTodayAndSkipsBrokenDays) {
    dir.write("screentime/2027-01-13.json", R"({"code": {"name": "Visual Studio Code", "seconds": 100}})");
    dir.write("screentime/2027-01-14.json", "garbage");
    dir.write("screentime/2027-01-12.json", R"({"code": {"name": "Code", "seconds": 1000}})");
    make();
    clock.advance(15);
    tracker->switchTo(kTerminal);
    clock.advance(200);
    const auto sums = tracker->usage(kMorning - 2 * 86400 + 5, clock.now());
    EXPECT_EQ(sums,
              (std::vector<std::pair<std::string, double>>{{"Terminal", 195}, {"Visual Studio Code", 115}}));
}

TEST_F(ScreenTimeTrackerTest, DemoModeWritesNothing) {
    make(/*demo=*/true);
    clock.advance(120);
    EXPECT_FALSE(std::filesystem::exists(dir / "screentime"));
}

class ScreenTimeMidnightTest : public ScreenTimeTrackerTest {
protected:
    ScreenTimeMidnightTest() : ScreenTimeTrackerTest(kBeforeMidnight) {}
};

TEST_F(ScreenTimeMidnightTest, TheOldDayFileIsCompleteAndTheNewDayStartsEmpty) {
    make();
    EXPECT_EQ(tracker->dayKey(), "2027-01-14");
    clock.advance(15);  // 23:59:55
    clock.advance(3);
    tracker->switchTo(kTerminal);  // 23:59:58, a session of 18 s closed
    EXPECT_EQ(tracker->sessions().size(), 1U);
    clock.advance(12);  // the tick at 00:00:10
    EXPECT_EQ(tracker->dayKey(), "2027-01-15");
    EXPECT_EQ(*file("2027-01-14"),
              (ScreenTimeDay{{"code", {"Visual Studio Code", 18, "/usr/share/code/code"}}}));
    EXPECT_TRUE(tracker->sessions().empty());
    EXPECT_DOUBLE_EQ(secondsOf("org.gnome.Terminal"), 12) << "the tick that found the new day credits it";
    EXPECT_DOUBLE_EQ(secondsOf("code"), 0);
    EXPECT_EQ(tracker->currentSince(), clock.now());
}

}  // namespace
}  // namespace vantrelle
