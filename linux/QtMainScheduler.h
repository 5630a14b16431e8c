#pragma once

#include <QObject>

#include "platform/Scheduler.h"

namespace vantrelle {

// The main queue on the Qt event loop. Must be created on the main thread; post() may be called from
// any thread, everything else from the main thread.
class QtMainScheduler final : public Scheduler {
public:
    QtMainScheduler();

    void post(std::function<void()> work) override;
    [[nodiscard]] WorkItem schedule(double delay, std::function<void()> work) override;
    [[nodiscard]] RepeatingTimer repeat(double interval, std::function<void()> tick) override;

private:
    Cancellable startTimer(double seconds, bool repeating, std::function<void()> work);

    QObject m_context;  // lives on the main thread; queued calls and timers belong to it
};

}  // namespace vantrelle
