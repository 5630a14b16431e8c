#pragma once

#include "platform/SerialQueue.h"

namespace vantrelle {

// Serial queues on worker threads, one thread each, named after the queue.
class ThreadQueueFactory final : public QueueFactory {
public:
    [[nodiscard]] std::unique_ptr<SerialQueue> make(std::string_view name) override;
};

}  // namespace vantrelle
