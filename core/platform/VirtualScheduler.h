#pragma once

#include <cstdint>
#include <mutex>
#include <queue>
#include <vector>

#include "platform/Clock.h"
#include "platform/Scheduler.h"

namespace vantrelle {

// A main queue on virtual time. Nothing runs until the owner advances the clock; then due work runs
// in order of due time (ties in order of scheduling) with the clock set to each item's due time.
// Used by tests and by one-shot command-line runs that fix "now".
class VirtualScheduler final : public Scheduler, public Clock {
public:
    explicit VirtualScheduler(Date start = Date{1'800'000'000.0});

    [[nodiscard]] Date now() const override;
    void post(std::function<void()> work) override;
    [[nodiscard]] WorkItem schedule(double delay, std::function<void()> work) override;
    [[nodiscard]] RepeatingTimer repeat(double interval, std::function<void()> tick) override;

    // Moves the clock forward by `seconds`, running everything that falls due on the way.
    void advance(double seconds);
    // Runs the work that is due now, including work that it posts in turn.
    void runUntilIdle() { advance(0); }
    // Sets the wall clock without running anything, as a clock change on the machine would.
    void setNow(Date date);

    // Work waiting to run, cancelled items not counted.
    [[nodiscard]] std::size_t pendingCount() const;

private:
    struct Entry {
        Date due;
        std::uint64_t sequence;
        double interval;  // 0 for one-shot work
        std::shared_ptr<CancelToken> token;
        std::shared_ptr<std::function<void()>> work;
    };
    struct Later {
        bool operator()(const Entry& a, const Entry& b) const {
            return a.due != b.due ? a.due > b.due : a.sequence > b.sequence;
        }
    };

    std::shared_ptr<CancelToken> enqueue(double delay, double interval, std::function<void()> work);

    mutable std::mutex m_mutex;
    Date m_now;
    std::uint64_t m_sequence = 0;
    std::priority_queue<Entry, std::vector<Entry>, Later> m_queue;
};

}  // namespace vantrelle
