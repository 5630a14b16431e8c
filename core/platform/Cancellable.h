#pragma once

#include <atomic>
#include <functional>
#include <memory>

namespace vantrelle {

// Shared between a scheduler and the handle it returned: the scheduler checks `cancelled`
// before running the work, the handle sets it.
struct CancelToken {
    std::atomic<bool> cancelled{false};
    std::function<void()> onCancel;  // lets a scheduler drop a platform timer at once
};

// Owning handle to scheduled work. Destroying the handle cancels the work, so work held in a
// member never outlives its owner: that is how timers and work items "hold their owner weakly".
class Cancellable {
public:
    Cancellable() = default;
    explicit Cancellable(std::shared_ptr<CancelToken> token) : m_token(std::move(token)) {}
    Cancellable(Cancellable&&) noexcept = default;
    Cancellable& operator=(Cancellable&& other) noexcept {
        if (this != &other) {
            cancel();
            m_token = std::move(other.m_token);
        }
        return *this;
    }
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;
    ~Cancellable() { cancel(); }

    void cancel() {
        if (!m_token) return;
        auto token = std::move(m_token);
        if (!token->cancelled.exchange(true) && token->onCancel) token->onCancel();
    }

    // Lets the work run to its end without anybody holding it.
    void detach() { m_token.reset(); }

    [[nodiscard]] bool isActive() const { return m_token && !m_token->cancelled.load(); }

private:
    std::shared_ptr<CancelToken> m_token;
};

// A delayed, cancellable piece of work on the main queue.
using WorkItem = Cancellable;
// A repeating main-queue timer; stops when cancelled or destroyed.
using RepeatingTimer = Cancellable;

}  // namespace vantrelle
