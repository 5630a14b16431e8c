#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vantrelle {

// A serial queue: work runs one item at a time, in order, off the main thread. An engine's mutable
// state belongs to its queue; results go back through Scheduler::post.
class SerialQueue {
public:
    virtual ~SerialQueue() = default;
    virtual void async(std::function<void()> work) = 0;
    [[nodiscard]] virtual const std::string& label() const = 0;
};

// Makes the queue named "com.quorvane.vantrelle.<name>".
class QueueFactory {
public:
    virtual ~QueueFactory() = default;
    [[nodiscard]] virtual std::unique_ptr<SerialQueue> make(std::string_view name) = 0;
};

[[nodiscard]] inline std::string queueLabel(std::string_view name) {
    return "com.quorvane.vantrelle." + std::string(name);
}

// Runs work at once on the calling thread: for tests and for one-shot command-line runs.
class InlineQueue final : public SerialQueue {
public:
    explicit InlineQueue(std::string_view name) : m_label(queueLabel(name)) {}
    void async(std::function<void()> work) override { work(); }
    [[nodiscard]] const std::string& label() const override { return m_label; }

private:
    std::string m_label;
};

class InlineQueueFactory final : public QueueFactory {
public:
    [[nodiscard]] std::unique_ptr<SerialQueue> make(std::string_view name) override {
        return std::make_unique<InlineQueue>(name);
    }
};

}  // namespace vantrelle
