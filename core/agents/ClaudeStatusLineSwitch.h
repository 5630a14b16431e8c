#pragma once

#include <memory>
#include <string>

#include "agents/ClaudeHooks.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"

namespace vantrelle {

// The Settings switch for Claude Code's status line. Like the hooks' switch it reads and edits the
// settings on a queue of its own and answers on the main thread. Turning it on never replaces a status
// line of the user's own: the switch stays off and its note says that one is there.
class ClaudeStatusLineSwitch {
public:
    // `command` is what Claude Code is to run: this program with "statusline".
    ClaudeStatusLineSwitch(const ClaudeHooks& hooks, std::string command, QueueFactory& queues,
                           Scheduler& scheduler);
    ~ClaudeStatusLineSwitch();
    ClaudeStatusLineSwitch(const ClaudeStatusLineSwitch&) = delete;
    ClaudeStatusLineSwitch& operator=(const ClaudeStatusLineSwitch&) = delete;

    void refresh();
    void set(bool installed);

    [[nodiscard]] bool isInstalled() const { return m_state == ClaudeStatusLine::ours; }
    [[nodiscard]] ClaudeStatusLine state() const { return m_state; }
    // What the user should know: a status line of their own is set, or why the last change failed.
    [[nodiscard]] const std::string& note() const { return m_note; }

    Signal<> changed;

private:
    struct Answer {
        ClaudeStatusLine state = ClaudeStatusLine::none;
        std::string note;
    };

    const ClaudeHooks& m_hooks;
    std::string m_command;
    Scheduler& m_scheduler;
    ClaudeStatusLine m_state = ClaudeStatusLine::none;
    std::string m_note;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    // Last, so it goes first: its worker finishes before anything it uses goes.
    std::unique_ptr<SerialQueue> m_queue;

    void run(bool change, bool installed);
};

}  // namespace vantrelle
