#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

class AppDelegateTest : public OverlayFixture {
protected:
    // Launches with the shell's hooks.
    AppDelegate& launch() {
        delegate.emplace(AppDelegate::Dependencies{
            environment, scheduler, hooks,
            [this] {
                steps.push_back("overlay");
                return std::make_unique<NotchOverlayController>(NotchOverlayController::Dependencies{
                    settings, activities, notifications, scheduler, scheduler, environment, windows, screens,
                    pasteboard, sounds, services, QuietMonitor::Probes{}, camera});
            },
            [this] { steps.push_back("accessory"); }, [this] { steps.push_back("categories"); },
            [] {
                return PermissionStatus{Permission::notRequired, Permission::undecided, Permission::denied};
            }});
        registerShellHooks(hooks, *delegate, settings, environment, [] {});
        delegate->applicationDidFinishLaunching();
        return *delegate;
    }

    LaunchHooks hooks;
    std::vector<std::string> steps;
    std::optional<AppDelegate> delegate;
};

TEST_F(AppDelegateTest, LaunchRunsInItsFixedOrderAndHooksRunAfterwards) {
    environment.set("VANTRELLE_START_EXPANDED", "1");
    environment.set("VANTRELLE_START_TAB", "calc");
    const auto& overlay = *launch().overlay();
    EXPECT_EQ(steps, (std::vector<std::string>{"accessory", "overlay", "categories"}));
    EXPECT_FALSE(overlay.state().isExpanded()) << "hooks run only after the launch returned";
    scheduler.advance(0.6);
    EXPECT_TRUE(overlay.state().isExpanded());
    EXPECT_EQ(overlay.state().tab(), NotchTab::calc);
}

}  // namespace
}  // namespace vantrelle::testing
