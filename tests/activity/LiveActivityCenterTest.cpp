#include <gtest/gtest.h>

#include "activity/LiveActivityCenter.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using Source = LiveActivityCenter::Source;

class LiveActivityCenterTest : public ::testing::Test {
protected:
    LiveActivityCenterTest() {
        connection =
            center.currentChanged.connect([this](const std::optional<LiveActivity>&) { ++publishes; });
    }

    static LiveActivity media(std::string title) {
        return LiveActivity{LiveActivity::Media{std::move(title), "Artist", true}};
    }

    VirtualScheduler scheduler;
    LiveActivityCenter center{scheduler};
    int publishes = 0;
    Connection connection;
};

TEST_F(LiveActivityCenterTest, HigherSourceWinsAndLowerOneUpdatesSilently) {
    center.set(LiveActivity{LiveActivity::Pomodoro{}}, Source::pomodoro);
    center.set(media("One"), Source::media);
    center.set(media("Two"), Source::media);
    center.set(LiveActivity{LiveActivity::Pomodoro{}}, Source::pomodoro);  // equal: nothing to publish
    EXPECT_EQ(center.current(), LiveActivity{LiveActivity::Pomodoro{}});
    EXPECT_EQ(publishes, 1);

    center.set(std::nullopt, Source::pomodoro);
    EXPECT_EQ(center.current(), media("Two"));
    EXPECT_EQ(publishes, 2);

    // A flash equal to what is shown neither animates nor changes on expiry.
    center.flash(media("Two"), 2);
    scheduler.advance(2);
    EXPECT_EQ(publishes, 2);

    center.set(std::nullopt, Source::media);  // the last slot cleared: absent is published too
    EXPECT_FALSE(center.current().has_value());
    EXPECT_EQ(publishes, 3);
}

TEST_F(LiveActivityCenterTest, ASecondFlashReplacesTheFirstAndRunsItsFullTime) {
    const LiveActivity first{LiveActivity::Update{"1.2"}};
    const LiveActivity second{LiveActivity::Download{"report.pdf", std::nullopt}};
    center.set(LiveActivity{LiveActivity::AgentAlert{"api", AgentAlertKind::approval}}, Source::agentAlert);
    center.flash(first, 4);
    EXPECT_EQ(center.current(), first) << "a flash beats even an agent alert";
    scheduler.advance(1);
    center.flash(second, 3);
    scheduler.advance(2.9);
    EXPECT_EQ(center.current(), second) << "the first flash's end never fires";
    scheduler.advance(0.1);
    EXPECT_TRUE(center.current()->is<LiveActivity::AgentAlert>());
}

TEST_F(LiveActivityCenterTest, PendingFlashDiesWithTheCenter) {
    VirtualScheduler local;
    {
        LiveActivityCenter shortLived(local);
        shortLived.flash(media("x"), 1);
        ASSERT_EQ(local.pendingCount(), 1u);
    }
    EXPECT_EQ(local.pendingCount(), 0u) << "the flash's expiry went with the center";
    local.advance(2);
}

}  // namespace
}  // namespace vantrelle
