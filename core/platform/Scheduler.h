#pragma once

#include <functional>

#include "platform/Cancellable.h"

namespace vantrelle {

// The main queue: everything that touches models runs here, in order.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    // Runs `work` on the main thread at its next turn. Safe to call from any thread.
    virtual void post(std::function<void()> work) = 0;

    // Runs `work` on the main thread after `delay` seconds, unless the item is cancelled or dropped first.
    [[nodiscard]] virtual WorkItem schedule(double delay, std::function<void()> work) = 0;

    // Runs `tick` on the main thread every `interval` seconds until the timer is cancelled or dropped.
    [[nodiscard]] virtual RepeatingTimer repeat(double interval, std::function<void()> tick) = 0;

    // Fire-and-forget form of schedule(), for start-up hooks and the like.
    void after(double delay, std::function<void()> work) { schedule(delay, std::move(work)).detach(); }
};

}  // namespace vantrelle
