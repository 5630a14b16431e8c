#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "app/StatusMenu.h"
#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

class AppDelegateTest : public OverlayFixture {
protected:
    AppDelegate::Dependencies dependencies() {
        return AppDelegate::Dependencies{
            environment,
            scheduler,
            hooks,
            [this] {
                steps.push_back("overlay");
                return std::make_unique<NotchOverlayController>(NotchOverlayController::Dependencies{
                    settings, activities, notifications, scheduler, scheduler, environment, windows, screens,
                    pasteboard, sounds, services, QuietMonitor::Probes{}, camera});
            },
            [this] { steps.push_back("accessory"); },
            [this] { steps.push_back("categories"); },
            [] {
                return PermissionStatus{Permission::notRequired, Permission::undecided, Permission::denied};
            }};
    }

    LaunchHooks hooks;
    std::vector<std::string> steps;
};

TEST_F(AppDelegateTest, LaunchRunsInItsFixedOrderAndHooksRunAfterwards) {
    captureLog();
    environment.set("VANTRELLE_START_EXPANDED", "1");
    environment.set("VANTRELLE_START_TAB", "calc");
    AppDelegate delegate(dependencies());
    registerShellHooks(hooks, delegate, settings, environment, {});
    delegate.applicationDidFinishLaunching();

    EXPECT_EQ(steps, (std::vector<std::string>{"accessory", "overlay", "categories"}));
    ASSERT_NE(delegate.overlay(), nullptr);
    EXPECT_FALSE(delegate.overlay()->state().isExpanded()) << "hooks run only after the launch returned";
    scheduler.advance(0.6);
    EXPECT_TRUE(delegate.overlay()->state().isExpanded());
    EXPECT_EQ(delegate.overlay()->state().tab(), NotchTab::calc);
    EXPECT_NE(
        log().find("permissions: calendar=no permission needed, reminders=not asked yet, camera=denied"),
        std::string::npos)
        << log();
    EXPECT_FALSE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(AppDelegateTest, UnknownStartTabOpensOnTheCurrentTool) {
    environment.set("VANTRELLE_START_EXPANDED", "1");
    environment.set("VANTRELLE_START_TAB", "weather");
    AppDelegate delegate(dependencies());
    registerShellHooks(hooks, delegate, settings, environment, {});
    delegate.applicationDidFinishLaunching();
    scheduler.advance(1);
    EXPECT_TRUE(delegate.overlay()->state().isExpanded());
    EXPECT_EQ(delegate.overlay()->state().tab(), NotchTab::dashboard);
}

TEST_F(AppDelegateTest, HooksFireOnlyForTheirExactCondition) {
    environment.set("VANTRELLE_START_EXPANDED", "true");
    environment.set("VANTRELLE_OPEN_SETTINGS", "neon");
    int settingsShown = 0;
    AppDelegate delegate(dependencies());
    registerShellHooks(hooks, delegate, settings, environment, [&] { ++settingsShown; });
    settings.setSettingsTab(SettingsTab::focus);
    delegate.applicationDidFinishLaunching();
    scheduler.advance(2);
    EXPECT_FALSE(delegate.overlay()->state().isExpanded());
    EXPECT_EQ(settingsShown, 1);
    EXPECT_EQ(settings.settingsTab(), SettingsTab::general) << "unknown page names open General";
}

TEST(LaunchHooks, KeepTheTableOrderWhateverTheRegistrationOrder) {
    LaunchHooks hooks;
    std::vector<std::string> ran;
    hooks.add({LaunchHookSlot::testPermission, "B", LaunchHook::isSet, 1.0,
               [&](const std::string&) { ran.push_back("B"); }});
    hooks.add({LaunchHookSlot::testStopPort, "A", LaunchHook::isInteger, 1.0,
               [&](const std::string& v) { ran.push_back("A" + v); }});
    MapEnvironment env({{"A", "5173"}, {"B", "camera"}});
    VirtualScheduler scheduler;
    EXPECT_EQ(hooks.evaluate(env, scheduler), 2);
    scheduler.advance(1);
    EXPECT_EQ(ran, (std::vector<std::string>{"A5173", "B"}));

    MapEnvironment malformed;
    malformed.set("A", "51x73");
    EXPECT_EQ(hooks.evaluate(malformed, scheduler), 0);
}

// The rows' texts are plain data; what is computed is which rows can be used.
TEST(StatusMenu, MissingCommandsAreDisabledAndAnUpdatesNoteReplacesTheCheck) {
    int opened = 0;
    StatusMenuCommands commands;
    commands.openNotch = [&] { ++opened; };
    commands.checkForUpdates = [] {};
    auto rows = statusMenuRows(commands);
    rows[0].action();
    EXPECT_EQ(opened, 1);
    EXPECT_FALSE(rows[1].enabled) << "no focus timer yet";
    EXPECT_FALSE(rows[5].enabled) << "no updater and no self-version check";
    commands.canCheckForUpdates = true;
    EXPECT_TRUE(statusMenuRows(commands)[5].enabled);
    commands.updatesNote = "Updates come from your package manager.";
    rows = statusMenuRows(commands);
    EXPECT_EQ(rows[5].text, commands.updatesNote);
    EXPECT_FALSE(rows[5].enabled);
}

}  // namespace
}  // namespace vantrelle::testing
