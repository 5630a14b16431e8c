#pragma once

#include <functional>
#include <memory>
#include <string>

#include "agents/ClaudeHooks.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"

namespace vantrelle {

// The switch for the Claude Code hooks, as the panel and the alert center see it. Reading and editing
// the settings file runs on the "claudehooks" queue, never on the main thread: the file can sit on a
// slow disk or be something that isn't a file at all. Results come back on the main thread.
class ClaudeHookSwitch {
public:
    ClaudeHookSwitch(const ClaudeHooks& hooks, QueueFactory& queues, Scheduler& scheduler);
    ~ClaudeHookSwitch();
    ClaudeHookSwitch(const ClaudeHookSwitch&) = delete;
    ClaudeHookSwitch& operator=(const ClaudeHookSwitch&) = delete;

    // Reads the settings again; `changed` follows.
    void refresh();
    // Installs or removes the hooks, then reads the settings again; `changed` follows.
    void set(bool installed);
    // Asks whether the hooks are installed; `answer` runs on the main thread.
    void whenKnown(std::function<void(bool installed)> answer);

    [[nodiscard]] bool isInstalled() const { return m_installed; }
    // Why the last change failed, or else why the settings can't be read; empty when all is well.
    [[nodiscard]] const std::string& message() const { return m_message; }
    // Work is queued whose answer hasn't arrived.
    [[nodiscard]] bool isBusy() const { return m_pending > 0; }

    Signal<> changed;

private:
    struct Answer {
        bool installed = false;
        std::string message;
    };
    void run(std::function<Answer(const ClaudeHooks&)> work);
    void apply(Answer answer);

    const ClaudeHooks& m_hooks;
    Scheduler& m_scheduler;
    bool m_installed = false;
    std::string m_message;
    int m_pending = 0;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    // Last, so it goes first: its worker finishes before anything it uses goes.
    std::unique_ptr<SerialQueue> m_queue;
};

}  // namespace vantrelle
