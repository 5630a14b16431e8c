#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/SerialQueue.h"

namespace vantrelle {

// The program's only log: a plain text file, off unless VANTRELLE_DEBUG_LOG names one. Lines are
// "HH:mm:ss.SSS message", stamped on the caller's thread and appended on the "debuglog" queue, so
// lines never interleave and their order is the order of the calls.
class DebugLog {
public:
    // Turns logging on if the environment names a file; otherwise it stays off.
    static void configureFromEnvironment(const Environment& environment, QueueFactory& queues);
    static void configure(std::filesystem::path file, std::unique_ptr<SerialQueue> queue,
                          const Clock& clock = SystemClock::shared());
    static void disable();

    [[nodiscard]] static bool isOn() { return s_on.load(std::memory_order_relaxed); }

    // The message is built only when logging is on, so call sites may pass costly formatting.
    template <typename MakeMessage>
    requires std::is_invocable_v<MakeMessage>
    static void write(MakeMessage&& makeMessage) {
        if (!isOn()) return;
        append(std::string(std::forward<MakeMessage>(makeMessage)()));
    }
    static void write(std::string_view message) {
        if (!isOn()) return;
        append(std::string(message));
    }

    // "HH:mm:ss.SSS" in local time.
    [[nodiscard]] static std::string timestamp(Date date);

private:
    static void append(const std::string& message);
    static std::atomic<bool> s_on;
};

}  // namespace vantrelle
