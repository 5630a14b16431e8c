#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "preferences/ToolSwitch.h"

namespace vantrelle {
namespace {

class ToolSwitchTest : public ::testing::Test, protected testing::AppBasics {};

TEST_F(ToolSwitchTest, TurningAToolOffIsStoredAndSaysNothing) {
    EXPECT_EQ(switchTool(settings, NotchTab::music, false).note, "");
    EXPECT_FALSE(settings.isEnabled(NotchTab::music));
    EXPECT_TRUE(switchTool(settings, NotchTab::music, true).applied);
    EXPECT_TRUE(settings.isEnabled(NotchTab::music));
}

TEST_F(ToolSwitchTest, TheDashboardAndTheLastToolAreRefusedWithTheirReason) {
    const auto dashboard = switchTool(settings, NotchTab::dashboard, false);
    EXPECT_FALSE(dashboard.applied);
    EXPECT_NE(dashboard.note.find("Dashboard stays on"), std::string::npos) << dashboard.note;
    EXPECT_TRUE(settings.isEnabled(NotchTab::dashboard));
    // Only the Dashboard and Notes left, in a list without the Dashboard as an old file may hold it.
    settings.setEnabledTabs({NotchTab::notes});
    EXPECT_FALSE(switchTool(settings, NotchTab::dashboard, false).applied);
    const auto notes = switchTool(settings, NotchTab::notes, false);
    EXPECT_FALSE(notes.applied);
    EXPECT_NE(notes.note.find("Notes is the last tool"), std::string::npos) << notes.note;
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
