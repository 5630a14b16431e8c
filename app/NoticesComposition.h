#pragma once

#include <QDBusConnection>
#include <string>

#include "AppServices.h"
#include "MonitorsComposition.h"
#include "catalog/AppSettings.h"
#include "monitors/BatteryMonitor.h"
#include "monitors/UPowerPowerSource.h"
#include "platform/DefaultsStore.h"
#include "platform/DesktopNotifications.h"
#include "platform/Environment.h"
#include "platform/HttpClient.h"
#include "updates/UpdateNotice.h"
#include "wrapped/WrappedReminders.h"

namespace vantrelle {

// The app's own notices: the battery, the recap's reminders and new releases. Owned by the composition
// root, built before the monitors, which read the battery for System Analytics.
class NoticesComposition {
public:
    struct Deps {
        const Environment& environment;
        Scheduler& scheduler;
        HttpClient& http;
        DefaultsStore& defaults;
        AppSettings& settings;
        LiveActivityCenter& activities;
        DesktopNotifications* notifications;
        bool demoMode = false;
    };

    explicit NoticesComposition(Deps deps);
    ~NoticesComposition();
    NoticesComposition(const NoticesComposition&) = delete;
    NoticesComposition& operator=(const NoticesComposition&) = delete;

    // The feed address: the hook for scripted runs, else the build's setting.
    [[nodiscard]] static std::string feedUrl(const Environment& environment);
    // A reminder's reply opens the recap on the period it named (the view's first for any other).
    static void showWrapped(const std::string& period, MonitorsComposition& monitors);
    // The tray's "Check for Updates…".
    void checkForUpdates() { updates.check(true); }
    // What the tray's updates row says in place of its command, if anything.
    [[nodiscard]] std::string updatesNote() const;

private:
    Deps m_deps;
    UPowerPowerSource m_power;

public:
    BatteryMonitor battery;
    WrappedReminders reminders;
    UpdateNotice updates;
};

}  // namespace vantrelle
