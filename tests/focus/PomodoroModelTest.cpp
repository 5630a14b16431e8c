#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "fakes/ScopedTimeZone.h"
#include "focus/PomodoroDayRecord.h"
#include "focus/PomodoroFixture.h"

namespace vantrelle {
namespace {

using testing::LogCapture;
using testing::PomodoroFixture;
using testing::ScopedTimeZone;

// The virtual clock starts at 2027-01-15 08:00 UTC.
constexpr const char* kTodayKey = "pomodoro.completed.2027-1-15";

class PomodoroModelTest : public PomodoroFixture {
protected:
    PomodoroModelTest() {
        observed = activities.currentChanged.connect([this](const auto&) { ++publishes; });
    }

    ScopedTimeZone utc{"UTC"};
    Connection observed;
    int publishes = 0;
};

// MARK: running a block

TEST_F(PomodoroModelTest, StartsIdleAndAnIdleTimerFollowsTheLengthSettings) {
    auto& m = makeModel();
    EXPECT_EQ(m.status(), PomodoroStatus::idle);
    EXPECT_EQ(m.remaining(), 1500);
    EXPECT_EQ(m.timeString(), "25:00");
    EXPECT_EQ(m.statusText(), "Ready to focus");
    EXPECT_FALSE(activities.current().has_value());
    settings.setFocusMinutes(50);
    EXPECT_EQ(m.timeString(), "50:00");
    settings.setFocusMinutes(1);
    EXPECT_EQ(m.total(), 60);
    m.start(1, PomodoroPhase::focus);
    settings.setFocusMinutes(30);
    EXPECT_EQ(m.total(), 60) << "what is on the clock stays";
}

TEST_F(PomodoroModelTest, RemainingIsDerivedFromTheEndAndPauseKeepsIt) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    EXPECT_EQ(m.statusText(), "Running");
    EXPECT_TRUE(activities.current()->is<LiveActivity::Pomodoro>());
    scheduler.advance(100);
    EXPECT_EQ(m.remaining(), 1400);
    scheduler.advance(0.1);  // between ticks: pause reads the clock itself
    m.pause();
    EXPECT_NEAR(m.remaining(), 1399.9, 1e-6);
    EXPECT_EQ(m.statusText(), "Paused");
    EXPECT_TRUE(activities.current().has_value()) << "a paused block stays in the notch";
    scheduler.advance(3600);
    const double left = m.remaining();
    EXPECT_EQ(m.remaining(), left) << "paused time does not run down";
    m.resume();
    EXPECT_EQ(m.endDate(), scheduler.now() + left);
    scheduler.advance(left + PomodoroModel::kTickInterval);
    EXPECT_TRUE(m.awaitingChoice());
}

TEST_F(PomodoroModelTest, ABlockOfZeroMinutesEndsAtTheFirstTick) {
    auto& m = makeModel();
    m.start(0, PomodoroPhase::focus);
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    scheduler.advance(PomodoroModel::kTickInterval);
    EXPECT_EQ(m.status(), PomodoroStatus::paused);
    EXPECT_TRUE(m.awaitingChoice());
}

TEST_F(PomodoroModelTest, PausingAtTheEndFinishesTheBlockInstead) {
    settings.setCustomTimerMinutes(1);
    auto& m = makeModel();
    m.setMode(PomodoroMode::custom);
    m.start(1, PomodoroPhase::focus);
    scheduler.setNow(scheduler.now() + 60);  // due, but no tick has run
    m.pause();
    EXPECT_EQ(m.status(), PomodoroStatus::idle) << "a finished custom timer is re-armed, not paused";
    m.setMode(PomodoroMode::work);
    m.start(25, PomodoroPhase::focus);
    scheduler.setNow(scheduler.now() + 1500);
    m.pause();
    EXPECT_EQ(m.status(), PomodoroStatus::paused);
    EXPECT_TRUE(m.awaitingChoice());
    EXPECT_EQ(m.sessionsToday().size(), 1U);
}

TEST_F(PomodoroModelTest, StopDoesNotCreditTheBlockAndEmptiesTheSlot) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    scheduler.advance(1000);
    m.stop();
    EXPECT_EQ(m.status(), PomodoroStatus::idle);
    EXPECT_EQ(m.remaining(), 1500);
    EXPECT_TRUE(m.sessionsToday().empty());
    EXPECT_FALSE(activities.current().has_value());
    scheduler.advance(3600);
    EXPECT_EQ(m.status(), PomodoroStatus::idle) << "no timer is left behind";
}

TEST_F(PomodoroModelTest, SelectingAModeLoadsItOnlyWhileIdle) {
    settings.setLongBreakMinutes(20);
    auto& m = makeModel();
    m.setMode(PomodoroMode::longBreak);
    EXPECT_EQ(m.phase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(m.total(), 1200);
    m.start(25, PomodoroPhase::focus);
    m.setMode(PomodoroMode::quickTimer);
    EXPECT_EQ(m.total(), 1500) << "what is on the clock stays";
    EXPECT_EQ(m.phase(), PomodoroPhase::focus);
}

TEST_F(PomodoroModelTest, TrayToggleStartsPausesAndResumes) {
    settings.setFocusMinutes(50);
    auto& m = makeModel();
    m.toggle();
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    EXPECT_EQ(m.total(), 3000);
    m.toggle();
    EXPECT_EQ(m.status(), PomodoroStatus::paused);
    m.toggle();
    EXPECT_EQ(m.status(), PomodoroStatus::running);
}

// MARK: the end of a block

TEST_F(PomodoroModelTest, AWorkBlockQueuesABreakPausedWithTheChoice) {
    auto& m = makeModel();
    int ends = 0;
    auto c = notifications.observe(Notifications::timerFinished, [&] { ++ends; });
    finishWorkBlock();
    EXPECT_EQ(m.status(), PomodoroStatus::paused);
    EXPECT_EQ(m.phase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(m.mode(), PomodoroMode::shortBreak);
    EXPECT_EQ(m.remaining(), 300);
    EXPECT_EQ(m.statusText(), "Work session done");
    EXPECT_EQ(m.sessionsToday().size(), 1U);
    EXPECT_EQ(history.days().begin()->second.focusMinutes, 25);
    EXPECT_EQ(sounds.played, std::vector<std::string>{"Glass"});
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(activities.current()->is<LiveActivity::Pomodoro>());
    scheduler.advance(3600);
    EXPECT_EQ(m.remaining(), 300) << "the queued break waits for the user";
}

TEST_F(PomodoroModelTest, ABreakEndQueuesFocusAndContinueWorkingStartsIt) {
    settings.setFocusMinutes(30);
    auto& m = makeModel();
    m.setMode(PomodoroMode::shortBreak);
    m.start(5, PomodoroPhase::shortBreak);
    scheduler.advance(300 + PomodoroModel::kTickInterval);
    EXPECT_EQ(m.statusText(), "Break over");
    EXPECT_EQ(m.mode(), PomodoroMode::work);
    EXPECT_EQ(m.total(), 1800);
    EXPECT_TRUE(m.sessionsToday().empty());
    scheduler.advance(1);
    m.continueWorking();
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    EXPECT_EQ(m.phase(), PomodoroPhase::focus);
    EXPECT_FALSE(m.awaitingChoice());
}

TEST_F(PomodoroModelTest, WithoutSoundsTheEndIsSilent) {
    settings.setPlaySounds(false);
    makeModel();
    finishWorkBlock();
    EXPECT_TRUE(sounds.played.empty());
}

TEST_F(PomodoroModelTest, ACustomTimerIsNotASessionAndStaysArmed) {
    settings.setCustomTimerMinutes(7);
    auto& m = makeModel();
    int ends = 0;
    auto c = notifications.observe(Notifications::timerFinished, [&] { ++ends; });
    m.setMode(PomodoroMode::custom);
    m.start(7, PomodoroPhase::focus);
    scheduler.advance(420 + PomodoroModel::kTickInterval);
    EXPECT_EQ(m.mode(), PomodoroMode::custom);
    EXPECT_EQ(m.status(), PomodoroStatus::idle);
    EXPECT_EQ(m.remaining(), 420);
    EXPECT_FALSE(m.awaitingChoice());
    EXPECT_TRUE(m.sessionsToday().empty());
    EXPECT_TRUE(history.days().empty());
    EXPECT_TRUE(service.delivered.empty());
    EXPECT_EQ(ends, 1) << "the notch still opens for it";
    EXPECT_FALSE(activities.current().has_value());
}

// MARK: sleep

TEST_F(PomodoroModelTest, ABlockThatEndedDuringSleepIsCreditedOnceAtWake) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    scheduler.advance(60);
    const Date wake = scheduler.now() + 4 * 3600;
    scheduler.setNow(wake);  // timers don't fire while the machine sleeps
    scheduler.advance(PomodoroModel::kTickInterval);
    ASSERT_EQ(m.sessionsToday().size(), 1U);
    EXPECT_EQ(m.sessionsToday()[0], wake) << "the overdue tick runs at wake";
    EXPECT_EQ(history.days().begin()->second.focusMinutes, 25) << "the planned length counts";
    EXPECT_EQ(m.status(), PomodoroStatus::paused);
    scheduler.setNow(scheduler.now() + 4 * 3600);
    scheduler.advance(1);
    EXPECT_EQ(m.remaining(), 300) << "the queued break did not run down";
    EXPECT_EQ(m.sessionsToday().size(), 1U);
}

// MARK: the long-break rule

TEST_F(PomodoroModelTest, EveryFourthBlockOfTheDayQueuesTheLongBreak) {
    auto& m = makeModel();
    const std::vector<PomodoroMode> expected{PomodoroMode::shortBreak, PomodoroMode::shortBreak,
                                             PomodoroMode::shortBreak, PomodoroMode::longBreak,
                                             PomodoroMode::shortBreak};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        finishWorkBlock();
        EXPECT_EQ(m.mode(), expected[i]) << "block " << i + 1;
    }
    EXPECT_EQ(service.count(PomodoroNotifier::kWorkDoneId), 1U) << "one work-done notification at a time";
}

TEST_F(PomodoroModelTest, BlocksRestoredFromTheDayRecordCountTowardsTheLongBreak) {
    defaults.set(std::string(kTodayKey) + ".log", std::vector<double>{1'799'990'000.0, 1'799'992'000.0});
    auto& m = makeModel();
    ASSERT_EQ(m.sessionsToday().size(), 2U);
    finishWorkBlock();
    EXPECT_EQ(m.mode(), PomodoroMode::shortBreak);
    finishWorkBlock();
    EXPECT_EQ(m.mode(), PomodoroMode::longBreak);
    EXPECT_EQ(m.total(), 900);
}

TEST_F(PomodoroModelTest, StopWhileALongBreakIsQueuedKeepsItLoaded) {
    settings.setLongBreakMinutes(20);
    defaults.set(kTodayKey, std::int64_t{3});
    auto& m = makeModel();
    finishWorkBlock();
    ASSERT_EQ(m.mode(), PomodoroMode::longBreak);
    m.stop();
    EXPECT_EQ(m.status(), PomodoroStatus::idle);
    EXPECT_EQ(m.phase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(m.total(), 1200);
    EXPECT_EQ(m.remaining(), 1200);
    EXPECT_FALSE(m.awaitingChoice());
    EXPECT_EQ(service.count(PomodoroNotifier::kWorkDoneId), 0U) << "stop takes the notification down";
}

// MARK: the choice guard

TEST_F(PomodoroModelTest, RepliesUpToTheGuardAreIgnoredAndLogged) {
    LogCapture log;
    auto& m = makeModel();
    finishWorkBlock();
    scheduler.setNow(*m.choiceShownAt() + PomodoroModel::kChoiceGuard);  // exactly the guard
    m.continueWorking();
    m.startQueuedPhase();
    EXPECT_TRUE(m.awaitingChoice());
    EXPECT_EQ(m.status(), PomodoroStatus::paused);
    EXPECT_NE(log.text().find("pomodoro: continueWorking ignored"), std::string::npos) << log.text();
    EXPECT_NE(log.text().find("pomodoro: startQueuedPhase ignored"), std::string::npos) << log.text();
    scheduler.advance(0.01);
    m.startQueuedPhase();
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    EXPECT_EQ(m.phase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(m.remaining(), 300);
}

TEST_F(PomodoroModelTest, RepliesWithoutAChoiceAreIgnored) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    scheduler.advance(10);
    m.continueWorking();
    EXPECT_EQ(m.remaining(), 1490) << "the running block was not restarted";
}

// MARK: the day record

TEST_F(PomodoroModelTest, CompletedBlocksSurviveARestartUnderBothKeys) {
    makeModel();
    finishWorkBlock();
    const Date first = model->sessionsToday().at(0);
    model.reset();
    EXPECT_EQ(defaults.integer(kTodayKey), 1);
    auto& restarted = makeModel();
    EXPECT_EQ(restarted.sessionsToday(), std::vector<Date>{first});
}

TEST_F(PomodoroModelTest, DayRecordFallsBackToTheCountWhenTheLogIsUnusable) {
    struct Case {
        const char* name;
        std::optional<DefaultsValue> log;
        std::int64_t count;
        std::size_t expected;
    };
    const std::vector<Case> cases{
        {"log of strings", DefaultsValue(std::vector<std::string>{"x", "y"}), 3, 3},
        {"log of one number", DefaultsValue(1.5), 2, 2},
        {"no log", std::nullopt, 2, 2},
        {"empty log wins over the count", DefaultsValue(std::vector<double>{}), 3, 0},
        {"negative count", std::nullopt, -4, 0},
    };
    for (const auto& c : cases) {
        MemoryDefaultsStore store;
        if (c.log) store.set(std::string(kTodayKey) + ".log", *c.log);
        store.set(kTodayKey, c.count);
        const auto sessions = PomodoroDayRecord::load(store, scheduler.now());
        ASSERT_EQ(sessions.size(), c.expected) << c.name;
        if (!sessions.empty()) {
            EXPECT_EQ(sessions.front(), Date{1'799'971'200.0 + 1800})
                << c.name << ": half an hour after midnight";
        }
    }
}

TEST_F(PomodoroModelTest, DayKeyHasNoZeroPadding) {
    EXPECT_EQ(PomodoroDayRecord::dayKey(Date{1'772'870'400.0}), "pomodoro.completed.2026-3-7");
    EXPECT_EQ(PomodoroDayRecord::dayKey(scheduler.now()), kTodayKey);
}

// MARK: hooks and demo mode

TEST_F(PomodoroModelTest, TestHookArmsAShortBlockOneSecondLater) {
    LogCapture log;
    environment.set("VANTRELLE_POMODORO_TEST", "2.5");
    auto& m = makeModel();
    EXPECT_EQ(m.status(), PomodoroStatus::idle);
    scheduler.advance(1.0);
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    EXPECT_EQ(m.total(), 2.5);
    scheduler.advance(2.5);
    EXPECT_TRUE(m.awaitingChoice());
    EXPECT_NE(log.text().find("pomodoro: test block armed for 2.5s"), std::string::npos) << log.text();
    EXPECT_NE(log.text().find("pomodoro: work block done, queued shortBreak 300s, today 1"),
              std::string::npos)
        << log.text();
}

TEST_F(PomodoroModelTest, BadTestHookValuesAreIgnoredAndDemoRuns) {
    for (const char* value : {"abc", "-5", "0", "", "3s", "nan", "inf"}) {
        environment.set("VANTRELLE_POMODORO_TEST", value);
        demo = true;
        auto& m = makeModel();
        EXPECT_EQ(m.status(), PomodoroStatus::running) << value;
        EXPECT_EQ(m.remaining(), 1108) << value;
        EXPECT_EQ(m.sessionsToday().size(), 2U) << value;
        scheduler.advance(1.0);
        EXPECT_EQ(m.total(), 1500) << value << ": no test block";
        model.reset();
    }
}

TEST_F(PomodoroModelTest, DemoModeWritesNoDayRecord) {
    demo = true;
    auto& m = makeModel();
    scheduler.advance(1108 + PomodoroModel::kTickInterval);
    EXPECT_EQ(m.sessionsToday().size(), 3U);
    EXPECT_FALSE(defaults.object(kTodayKey).has_value());
    EXPECT_TRUE(service.delivered.empty()) << "demo mode posts nothing";
}

TEST_F(PomodoroModelTest, StateChangesAreLogged) {
    LogCapture log;
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    m.pause();
    m.stop();
    EXPECT_NE(log.text().find("pomodoro: running work 1500s"), std::string::npos) << log.text();
    EXPECT_NE(log.text().find("pomodoro: paused work 1500s"), std::string::npos) << log.text();
    EXPECT_NE(log.text().find("pomodoro: idle work"), std::string::npos) << log.text();
}

}  // namespace
}  // namespace vantrelle
