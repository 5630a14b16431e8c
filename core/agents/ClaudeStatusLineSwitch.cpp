#include "agents/ClaudeStatusLineSwitch.h"

namespace vantrelle {

ClaudeStatusLineSwitch::ClaudeStatusLineSwitch(const ClaudeHooks& hooks, std::string command,
                                               QueueFactory& queues, Scheduler& scheduler)
    : m_hooks(hooks),
      m_command(std::move(command)),
      m_scheduler(scheduler),
      m_queue(queues.make("claudehooks")) {}

ClaudeStatusLineSwitch::~ClaudeStatusLineSwitch() {
    m_queue.reset();
}

void ClaudeStatusLineSwitch::refresh() {
    run(false, false);
}

void ClaudeStatusLineSwitch::set(bool installed) {
    run(true, installed);
}

void ClaudeStatusLineSwitch::run(bool change, bool installed) {
    m_queue->async([hooks = &m_hooks, command = m_command, &scheduler = m_scheduler,
                    alive = std::weak_ptr<bool>(m_alive), this, change, installed] {
        std::optional<std::string> failure;
        if (change)
            failure = installed ? hooks->installStatusLine(command, false) : hooks->uninstallStatusLine();
        const auto status = hooks->statusLineStatus();
        Answer answer{status.state, {}};
        if (status.problem) {
            answer.note = *status.problem;
        } else if (status.state == ClaudeStatusLine::foreign) {
            answer.note = "Claude Code shows a status line of your own (\"" + status.command +
                          "\"); it stays. Remove it from " + hooks->settingsFile().string() +
                          " to use this one.";
        } else if (failure) {
            answer.note = *failure;
        }
        scheduler.post([alive, this, answer = std::move(answer)]() mutable {
            if (alive.expired()) return;
            m_state = answer.state;
            m_note = std::move(answer.note);
            changed.emit();
        });
    });
}

}  // namespace vantrelle
