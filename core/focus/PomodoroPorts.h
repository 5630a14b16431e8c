#pragma once

#include <cstdint>
#include <string>

namespace vantrelle {

// What the focus timer asks of its notifications.
class PomodoroAlerts {
public:
    virtual ~PomodoroAlerts() = default;
    virtual void requestAuthorizationIfNeeded() = 0;
    virtual void workFinished(std::int64_t completedToday, const std::string& breakTitle,
                              std::int64_t breakMinutes) = 0;
    virtual void breakFinished(std::int64_t focusMinutes) = 0;
    // Takes down the delivered "work done" and "break over" notifications.
    virtual void removeDelivered() = 0;
};

// The replies a notification can give the focus timer.
class PomodoroChoice {
public:
    virtual ~PomodoroChoice() = default;
    virtual void continueWorking() = 0;
    virtual void startQueuedPhase() = 0;
    virtual void clearChoice() = 0;
};

}  // namespace vantrelle
