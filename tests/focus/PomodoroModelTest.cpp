#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "fakes/ScopedTimeZone.h"
#include "focus/PomodoroDayRecord.h"
#include "focus/PomodoroFixture.h"

namespace vantrelle {
namespace {

using testing::LogCapture;

// The virtual clock starts at 2027-01-15 08:00 UTC.
constexpr const char* kTodayKey = "pomodoro.completed.2027-1-15";

class PomodoroModelTest : public testing::PomodoroFixture {
protected:
    testing::ScopedTimeZone utc{"UTC"};
};

TEST_F(PomodoroModelTest, RemainingIsDerivedFromTheEndPauseKeepsItAndStopCreditsNothing) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    scheduler.advance(100);
    m.continueWorking();  // no choice is waiting: the running block is not restarted
    EXPECT_EQ(m.remaining(), 1400);
    scheduler.advance(0.1);  // between ticks: pause reads the clock itself
    m.pause();
    scheduler.advance(3600);
    EXPECT_NEAR(m.remaining(), 1399.9, 1e-6) << "paused time does not run down";
    m.resume();
    EXPECT_EQ(m.endDate(), scheduler.now() + m.remaining());

    m.stop();
    EXPECT_EQ(m.remaining(), 1500);
    EXPECT_FALSE(activities.current().has_value());
    scheduler.advance(3600);
    EXPECT_TRUE(m.sessionsToday().empty()) << "no timer is left behind";
}

TEST_F(PomodoroModelTest, PausingAtTheEndFinishesTheBlockInsteadAndAZeroMinuteBlockEndsAtOnce) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    scheduler.setNow(scheduler.now() + 1500);
    m.pause();
    EXPECT_TRUE(m.awaitingChoice());
    EXPECT_EQ(m.sessionsToday().size(), 1U);

    m.stop();
    m.start(0, PomodoroPhase::focus);
    scheduler.advance(PomodoroModel::kTickInterval);
    EXPECT_TRUE(m.awaitingChoice()) << "a block of zero minutes ends at the first tick";
}

TEST_F(PomodoroModelTest, AWorkBlockQueuesABreakPausedWithTheChoiceAndABreakEndQueuesFocus) {
    settings.setFocusMinutes(30);
    auto& m = makeModel();
    int ends = 0;
    auto c = notifications.observe(Notifications::timerFinished, [&] { ++ends; });
    finishWorkBlock();
    EXPECT_EQ(m.mode(), PomodoroMode::shortBreak);
    EXPECT_EQ(m.remaining(), 300);
    EXPECT_EQ(sounds.played, std::vector<std::string>{"Glass"});
    EXPECT_EQ(ends, 1);

    // The break ends: focus is queued at its set length, and no session is credited for a break.
    scheduler.advance(1);
    m.startQueuedPhase();
    scheduler.advance(300 + PomodoroModel::kTickInterval);
    EXPECT_EQ(m.total(), 1800);
    EXPECT_EQ(m.sessionsToday().size(), 1U);
    scheduler.advance(1);
    m.continueWorking();
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    EXPECT_EQ(m.phase(), PomodoroPhase::focus);
}

TEST_F(PomodoroModelTest, ACustomTimerIsNotASessionAndStaysArmed) {
    settings.setCustomTimerMinutes(7);
    settings.setPlaySounds(false);
    auto& m = makeModel();
    int ends = 0;
    auto c = notifications.observe(Notifications::timerFinished, [&] { ++ends; });
    m.setMode(PomodoroMode::custom);
    m.start(7, PomodoroPhase::focus);
    scheduler.advance(420 + PomodoroModel::kTickInterval);
    EXPECT_EQ(m.status(), PomodoroStatus::idle);
    EXPECT_EQ(m.remaining(), 420);
    EXPECT_TRUE(history.days().empty());
    EXPECT_EQ(ends, 1) << "the notch still opens for it";
    EXPECT_TRUE(sounds.played.empty()) << "sounds are off";

    m.start(7, PomodoroPhase::focus);
    scheduler.setNow(scheduler.now() + 420);  // due, but no tick has run
    m.pause();
    EXPECT_EQ(m.status(), PomodoroStatus::idle) << "pausing a finished timer re-arms it instead";
}

TEST_F(PomodoroModelTest, ABlockThatEndedDuringSleepIsCreditedOnceAtWake) {
    auto& m = makeModel();
    m.start(25, PomodoroPhase::focus);
    scheduler.advance(60);
    const Date wake = scheduler.now() + 4 * 3600;
    scheduler.setNow(wake);  // timers don't fire while the machine sleeps
    scheduler.advance(PomodoroModel::kTickInterval);
    EXPECT_EQ(m.sessionsToday(), std::vector<Date>{wake}) << "the overdue tick runs at wake";
    EXPECT_EQ(history.days().begin()->second.focusMinutes, 25) << "the planned length counts";
    scheduler.setNow(scheduler.now() + 4 * 3600);
    scheduler.advance(1);
    EXPECT_EQ(m.remaining(), 300) << "the queued break did not run down";
    EXPECT_EQ(m.sessionsToday().size(), 1U);
}

TEST_F(PomodoroModelTest, BlocksRestoredFromTheDayRecordCountTowardsTheLongBreakAndStopKeepsItLoaded) {
    settings.setLongBreakMinutes(20);
    defaults.set(std::string(kTodayKey) + ".log", std::vector<double>{1'799'990'000.0, 1'799'992'000.0});
    auto& m = makeModel();
    ASSERT_EQ(m.sessionsToday().size(), 2U);
    finishWorkBlock();
    EXPECT_EQ(m.mode(), PomodoroMode::shortBreak);
    finishWorkBlock();
    ASSERT_EQ(m.mode(), PomodoroMode::longBreak) << "the fourth block of the day";
    m.stop();
    EXPECT_EQ(m.remaining(), 1200);
    EXPECT_FALSE(m.awaitingChoice());
    EXPECT_EQ(service.count(PomodoroNotifier::kWorkDoneId), 0U) << "stop takes the notification down";
    finishWorkBlock();
    EXPECT_EQ(m.mode(), PomodoroMode::shortBreak) << "the fifth";
}

TEST_F(PomodoroModelTest, RepliesUpToTheGuardAreIgnoredAndLogged) {
    LogCapture log;
    auto& m = makeModel();
    finishWorkBlock();
    scheduler.setNow(*m.choiceShownAt() + PomodoroModel::kChoiceGuard);  // exactly the guard
    m.continueWorking();
    m.startQueuedPhase();
    EXPECT_TRUE(m.awaitingChoice());
    EXPECT_NE(log.text().find("ignored"), std::string::npos) << log.text();
    scheduler.advance(0.01);
    m.startQueuedPhase();
    EXPECT_EQ(m.status(), PomodoroStatus::running);
    EXPECT_EQ(m.phase(), PomodoroPhase::shortBreak);
}

TEST_F(PomodoroModelTest, CompletedBlocksSurviveARestartUnderBothKeys) {
    makeModel();
    finishWorkBlock();
    const Date first = model->sessionsToday().at(0);
    model.reset();
    EXPECT_EQ(defaults.integer(kTodayKey), 1);
    EXPECT_EQ(makeModel().sessionsToday(), std::vector<Date>{first});
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
        {"empty log wins over the count", DefaultsValue(std::vector<double>{}), 3, 0},
        {"negative count", std::nullopt, -4, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        MemoryDefaultsStore store;
        if (c.log) store.set(std::string(kTodayKey) + ".log", *c.log);
        store.set(kTodayKey, c.count);
        const auto sessions = PomodoroDayRecord::load(store, scheduler.now());
        ASSERT_EQ(sessions.size(), c.expected);
        if (!sessions.empty()) {
            EXPECT_EQ(sessions.front(), Date{1'799'971'200.0 + 1800}) << "half an hour after midnight";
        }
    }
    EXPECT_EQ(PomodoroDayRecord::dayKey(Date{1'772'870'400.0}), "pomodoro.completed.2026-3-7")
        << "no zero padding";
}

TEST_F(PomodoroModelTest, DemoRunsWithoutWritingADayRecordOrPosting) {
    demo = true;
    auto& m = makeModel();
    scheduler.advance(1108 + PomodoroModel::kTickInterval);  // the demo block's end
    EXPECT_EQ(m.sessionsToday().size(), 3U);
    EXPECT_FALSE(defaults.object(kTodayKey).has_value());
    EXPECT_TRUE(service.delivered.empty());
}

}  // namespace
}  // namespace vantrelle
