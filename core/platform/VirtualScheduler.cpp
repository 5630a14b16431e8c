#include "platform/VirtualScheduler.h"

#include <algorithm>

namespace vantrelle {

VirtualScheduler::VirtualScheduler(Date start) : m_now(start) {}

Date VirtualScheduler::now() const {
    std::lock_guard lock(m_mutex);
    return m_now;
}

void VirtualScheduler::setNow(Date date) {
    std::lock_guard lock(m_mutex);
    m_now = date;
}

std::shared_ptr<CancelToken> VirtualScheduler::enqueue(double delay, double interval,
                                                       std::function<void()> work) {
    auto token = std::make_shared<CancelToken>();
    std::lock_guard lock(m_mutex);
    m_queue.push(Entry{m_now + std::max(0.0, delay), m_sequence++, interval, token,
                       std::make_shared<std::function<void()>>(std::move(work))});
    return token;
}

void VirtualScheduler::post(std::function<void()> work) {
    enqueue(0, 0, std::move(work));
}

WorkItem VirtualScheduler::schedule(double delay, std::function<void()> work) {
    return WorkItem(enqueue(delay, 0, std::move(work)));
}

RepeatingTimer VirtualScheduler::repeat(double interval, std::function<void()> tick) {
    // A zero interval would spin forever inside advance().
    interval = std::max(interval, 1e-3);
    return RepeatingTimer(enqueue(interval, interval, std::move(tick)));
}

void VirtualScheduler::advance(double seconds) {
    std::unique_lock lock(m_mutex);
    const Date end = m_now + std::max(0.0, seconds);
    while (!m_queue.empty() && m_queue.top().due <= end) {
        Entry entry = m_queue.top();
        m_queue.pop();
        // A one-shot item is spent once it starts, so its handle stops reporting it as pending.
        const bool repeating = entry.interval > 0;
        if (repeating ? entry.token->cancelled.load() : entry.token->cancelled.exchange(true)) continue;
        m_now = std::max(m_now, entry.due);
        if (repeating) {
            m_queue.push(
                Entry{entry.due + entry.interval, m_sequence++, entry.interval, entry.token, entry.work});
        }
        lock.unlock();
        (*entry.work)();
        lock.lock();
    }
    m_now = std::max(m_now, end);
}

std::size_t VirtualScheduler::pendingCount() const {
    std::lock_guard lock(m_mutex);
    auto copy = m_queue;
    std::size_t count = 0;
    for (; !copy.empty(); copy.pop()) count += copy.top().token->cancelled ? 0 : 1;
    return count;
}

}  // namespace vantrelle
