#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "focus/PomodoroFixture.h"

namespace vantrelle {
namespace {

using testing::PomodoroFixture;

class PomodoroNotifierTest : public PomodoroFixture {
protected:
    // Past the guard, so replies count.
    void waitPastGuard() { scheduler.advance(1); }
};

TEST_F(PomodoroNotifierTest, AWorkBlockPostsItsButtonsOnce) {
    EXPECT_EQ(PomodoroNotifier::workDoneBody(3, "Long Break", 15),
              "3 sessions done today. Take a 15 minute long break, or keep working.");
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

TEST_F(PomodoroNotifierTest, BreakOverOffersTheNextSession) {
    auto& m = makeModel();
    m.setMode(PomodoroMode::shortBreak);
    m.start(5, PomodoroPhase::shortBreak);
    scheduler.advance(300 + PomodoroModel::kTickInterval);
    ASSERT_EQ(service.count(PomodoroNotifier::kBreakDoneId), 1U);
    EXPECT_EQ(service.delivered[0].body, "Ready for another 25 minutes?");
    waitPastGuard();
    service.click(std::string(PomodoroNotifier::kBreakDoneId), "pomodoro.start-focus");
    EXPECT_EQ(m.phase(), PomodoroPhase::focus);
    EXPECT_EQ(m.remaining(), 1500);
}

TEST_F(PomodoroNotifierTest, ARecapReplyIsNotAFocusReply) {
    auto& m = makeModel();
    std::string period;
    notifier->onWrappedReply = [&](const std::string& p) { period = p; };
    finishWorkBlock();
    waitPastGuard();
    service.reply({"wrapped.weekly", "pomodoro.keep-working", {{"wrapped", "week"}}});
    EXPECT_EQ(period, "week");
    EXPECT_TRUE(m.awaitingChoice());
    service.reply({"updates", "dismissed", {}});
    EXPECT_TRUE(m.awaitingChoice()) << "another notice's reply leaves the choice alone";
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

TEST_F(PomodoroNotifierTest, APostBeforeTheAuthorizationAnswerGoesAhead) {
    service.postError = "no room";
    makeModel();
    notifier->workFinished(1, "Short Break", 5);
    EXPECT_EQ(service.posts, 1) << "authorization not known yet";
}

}  // namespace
}  // namespace vantrelle
