#pragma once

#include <functional>
#include <string>

#include "platform/SerialQueue.h"

namespace vantrelle::testing {

// Runs work at once on the calling thread and counts what was dispatched to it, so a test sees which
// calls went through the queue. The count outlives the queue, which its owner may take.
class CountingQueue final : public SerialQueue {
public:
    CountingQueue(std::string_view name, int& dispatched)
        : m_dispatched(dispatched), m_label(queueLabel(name)) {}
    void async(std::function<void()> work) override {
        ++m_dispatched;
        work();
    }
    [[nodiscard]] const std::string& label() const override { return m_label; }

private:
    int& m_dispatched;
    std::string m_label;
};

}  // namespace vantrelle::testing
