#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "preferences/ToolSwitch.h"

namespace vantrelle {
namespace {

class ToolSwitchTest : public ::testing::Test, protected testing::AppBasics {};

TEST_F(ToolSwitchTest, TurningAToolOffIsStoredAndSaysNothing) {
    const auto outcome = switchTool(settings, NotchTab::music, false);
    EXPECT_TRUE(outcome.applied);
    EXPECT_EQ(outcome.note, "");
    EXPECT_FALSE(settings.isEnabled(NotchTab::music));
    EXPECT_TRUE(switchTool(settings, NotchTab::music, true).applied);
    EXPECT_TRUE(settings.isEnabled(NotchTab::music));
}

TEST_F(ToolSwitchTest, TheDashboardIsRefusedWithItsReason) {
    const auto outcome = switchTool(settings, NotchTab::dashboard, false);
    EXPECT_FALSE(outcome.applied);
    EXPECT_NE(outcome.note.find("Dashboard stays on"), std::string::npos) << outcome.note;
    EXPECT_TRUE(settings.isEnabled(NotchTab::dashboard));
    // A list set without it (as an old file may hold) still refuses, rather than reading as done.
    settings.setEnabledTabs({NotchTab::notes});
    EXPECT_FALSE(switchTool(settings, NotchTab::dashboard, false).applied);
}

TEST_F(ToolSwitchTest, TheLastToolIsRefusedAndNamed) {
    // Only the Dashboard and Notes left; the Dashboard can't go, and Notes may go only while another is on.
    settings.setEnabledTabs({NotchTab::notes});
    const auto outcome = switchTool(settings, NotchTab::notes, false);
    EXPECT_FALSE(outcome.applied);
    EXPECT_NE(outcome.note.find("Notes is the last tool"), std::string::npos) << outcome.note;
    EXPECT_TRUE(settings.isEnabled(NotchTab::notes));
}

TEST_F(ToolSwitchTest, ToolsThatComeBackAtLaunchSaySoWhenTurnedOff) {
    for (NotchTab tab : {NotchTab::support, NotchTab::aiUsage, NotchTab::calc}) {
        const auto outcome = switchTool(settings, tab, false);
        EXPECT_TRUE(outcome.applied) << rawValue(tab);
        EXPECT_NE(outcome.note.find("comes back at the next start"), std::string::npos) << rawValue(tab);
    }
    // And they do: a new load of the same store turns them back on.
    AppSettings reloaded(defaults, notifications, loginItem, scheduler);
    EXPECT_TRUE(reloaded.isEnabled(NotchTab::support));
    EXPECT_TRUE(reloaded.isEnabled(NotchTab::calc));
}

}  // namespace
}  // namespace vantrelle
