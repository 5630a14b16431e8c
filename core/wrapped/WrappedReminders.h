#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalog/AppSettings.h"
#include "platform/Clock.h"
#include "platform/DefaultsStore.h"
#include "platform/DesktopNotifications.h"
#include "platform/Scheduler.h"
#include "wrapped/WrappedPeriod.h"

namespace vantrelle {

// A desktop notification at the end of each week and month offering its recap; the reply (routed by
// the notification's "wrapped" key) opens the recap on that period. A week's reminder is due on its
// Sunday from 18:00 and a month's on its last day from 18:00; one missed because the app wasn't running
// is still given on the first day of the next period, then it lapses. The last reminded period of each
// kind is kept in the defaults, so there is never more than one per period, restarts included.
// Main thread only.
class WrappedReminders {
public:
    static constexpr double kCheckInterval = 300;  // cheap, and robust to sleep and clock changes
    static constexpr int kDueHour = 18;
    static constexpr std::string_view kWeekKey = "wrappedReminders.lastWeek";
    static constexpr std::string_view kMonthKey = "wrappedReminders.lastMonth";
    static constexpr std::string_view kOpenAction = "wrapped.open";

    struct Dependencies {
        const Clock& clock;
        Scheduler& scheduler;
        AppSettings& settings;
        DefaultsStore& defaults;
        DesktopNotifications* service;  // null: no notification service in this session
        bool demoMode = false;
    };

    // What is due at a moment: the period to offer and the day key of its start, which names it.
    struct Due {
        WrappedPeriod period;
        std::string key;
        bool operator==(const Due&) const = default;
    };

    explicit WrappedReminders(Dependencies deps);
    [[nodiscard]] static WrappedReminders& shared();

    // Checks at once and then every few minutes; a background service.
    void start();
    // Posts what is due and not yet reminded.
    void check();

    [[nodiscard]] static std::optional<Due> dueWeek(Date now);
    [[nodiscard]] static std::optional<Due> dueMonth(Date now);
    [[nodiscard]] static DesktopNotification notification(WrappedPeriod period);

private:
    void remind(const std::optional<Due>& due, std::string_view storeKey);

    Dependencies m_deps;
    RepeatingTimer m_timer;
};

}  // namespace vantrelle
