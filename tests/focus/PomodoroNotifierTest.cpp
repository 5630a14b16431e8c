#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "focus/PomodoroFixture.h"

namespace vantrelle {
namespace {

using testing::PomodoroFixture;

class PomodoroNotifierTest : public PomodoroFixture {
protected:
    void waitPastGuard() { scheduler.advance(1); }  // so replies count
};

TEST_F(PomodoroNotifierTest, AWorkBlockPostsItsButtonsOnce) {
    makeModel();
    finishWorkBlock();
    ASSERT_EQ(service.delivered.size(), 1U);
    const auto& n = service.delivered[0];
    EXPECT_EQ(n.body, "1 session done today. Take a 5 minute short break, or keep working.");
    EXPECT_EQ(n.actions,
              (std::vector<std::pair<std::string, std::string>>{{"pomodoro.start-break", "Start break"},
                                                                {"pomodoro.keep-working", "Keep working"}}));
    finishWorkBlock();
    EXPECT_EQ(service.count(PomodoroNotifier::kWorkDoneId), 1U);
    EXPECT_EQ(service.authorizations, 1) << "asked once, at the first start";
}

TEST_F(PomodoroNotifierTest, RepliesDriveTheTimer) {
    struct Case {
        const char* action;
        PomodoroStatus status;
        PomodoroPhase phase;
        bool awaiting;
    };
    const std::vector<Case> cases{
        {"pomodoro.start-break", PomodoroStatus::running, PomodoroPhase::shortBreak, false},
        {"pomodoro.keep-working", PomodoroStatus::running, PomodoroPhase::focus, false},
        {"something-else", PomodoroStatus::paused, PomodoroPhase::shortBreak, false},
        {"default", PomodoroStatus::paused, PomodoroPhase::shortBreak, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.action);
        auto& m = makeModel();
        int reveals = 0;
        auto observed = notifications.observe(Notifications::pomodoroRevealRequested, [&] { ++reveals; });
        finishWorkBlock();
        waitPastGuard();
        service.click(std::string(PomodoroNotifier::kWorkDoneId), c.action);
        EXPECT_EQ(m.status(), c.status);
        EXPECT_EQ(m.phase(), c.phase);
        EXPECT_EQ(m.awaitingChoice(), c.awaiting);
        EXPECT_EQ(reveals, std::string(c.action) == "default" ? 1 : 0);
        m.stop();
    }
}

TEST_F(PomodoroNotifierTest, SettingOffOrAMissingServiceStillOffersTheChoice) {
    testing::LogCapture log;
    settings.setSessionNotifications(false);
    auto& m = makeModel();
    finishWorkBlock();
    EXPECT_TRUE(service.delivered.empty());
    EXPECT_TRUE(m.awaitingChoice());

    settings.setSessionNotifications(true);
    service.granted = false;
    service.authorizeError = "org.freedesktop.DBus.Error.ServiceUnknown";
    model.reset();
    auto& refused = makeModel();
    finishWorkBlock();
    EXPECT_EQ(notifier->authorized(), false);
    EXPECT_EQ(service.posts, 0);
    EXPECT_TRUE(refused.awaitingChoice()) << "a missing service changes nothing in the timer";
    EXPECT_NE(log.text().find("authorization failed"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle
