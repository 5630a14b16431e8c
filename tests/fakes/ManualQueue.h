#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/SerialQueue.h"

namespace vantrelle::testing {

// Queues that hold their work until the test runs it, so a test can see what happens before the
// work runs, between it and the answer on the main queue, and after.
class ManualQueueFactory final : public QueueFactory {
public:
    [[nodiscard]] std::unique_ptr<SerialQueue> make(std::string_view name) override {
        return std::make_unique<Queue>(queueLabel(name), m_work);
    }
    // Runs what is waiting, in order, including work queued meanwhile. Returns how many items ran.
    std::size_t runAll() {
        std::size_t ran = 0;
        while (!m_work->empty()) {
            auto work = std::move(m_work->front());
            m_work->erase(m_work->begin());
            work();
            ++ran;
        }
        return ran;
    }
    [[nodiscard]] std::size_t waiting() const { return m_work->size(); }

private:
    using Work = std::vector<std::function<void()>>;
    class Queue final : public SerialQueue {
    public:
        Queue(std::string label, std::shared_ptr<Work> work)
            : m_label(std::move(label)), m_work(std::move(work)) {}
        void async(std::function<void()> work) override { m_work->push_back(std::move(work)); }
        [[nodiscard]] const std::string& label() const override { return m_label; }

    private:
        std::string m_label;
        std::shared_ptr<Work> m_work;
    };
    std::shared_ptr<Work> m_work = std::make_shared<Work>();
};

}  // namespace vantrelle::testing
