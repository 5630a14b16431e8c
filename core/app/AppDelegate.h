#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/LaunchHooks.h"
#include "overlay/NotchOverlayController.h"
#include "platform/Environment.h"
#include "platform/Scheduler.h"

namespace vantrelle {

// Where the program stands with one protected resource. Desktops without a permission prompt make most
// resources notRequired; a camera is granted or denied by the device file's access rights.
enum class Permission { undecided, denied, granted, notRequired, noDevice };

[[nodiscard]] std::string_view describe(Permission permission);

struct PermissionStatus {
    Permission calendar = Permission::undecided;
    Permission reminders = Permission::undecided;
    Permission camera = Permission::undecided;
};

// The launch, in its fixed order: the program leaves the task bar before any panel exists, and the
// overlay (which starts every service) is up before any test hook runs. Data has moved into place
// before this object exists: the composition root runs prepareLaunchFiles before it builds any store.
class AppDelegate {
public:
    struct Dependencies {
        const Environment& environment;
        Scheduler& scheduler;
        LaunchHooks& hooks;
        std::function<std::unique_ptr<NotchOverlayController>()> makeOverlay;
        std::function<void()> setAccessoryPolicy;
        std::function<void()> registerNotificationCategories;
        std::function<PermissionStatus()> permissions;
    };

    explicit AppDelegate(Dependencies dependencies) : m_d(std::move(dependencies)) {}

    void applicationDidFinishLaunching();
    // Closing the settings or recap window never ends the process.
    [[nodiscard]] static constexpr bool applicationShouldTerminateAfterLastWindowClosed() { return false; }

    [[nodiscard]] NotchOverlayController* overlay() const { return m_overlay.get(); }

private:
    Dependencies m_d;
    std::unique_ptr<NotchOverlayController> m_overlay;
};

// The hooks of the shell itself: start expanded on a tool, open the settings on a page.
void registerShellHooks(LaunchHooks& hooks, const AppDelegate& delegate, AppSettings& settings,
                        const Environment& environment, std::function<void()> showSettings);

}  // namespace vantrelle
