#include "agents/ClaudeHookSwitch.h"

namespace vantrelle {

ClaudeHookSwitch::ClaudeHookSwitch(const ClaudeHooks& hooks, QueueFactory& queues, Scheduler& scheduler)
    : m_hooks(hooks), m_scheduler(scheduler), m_queue(queues.make("claudehooks")) {}

ClaudeHookSwitch::~ClaudeHookSwitch() {
    m_queue.reset();
}

void ClaudeHookSwitch::refresh() {
    run([](const ClaudeHooks& hooks) {
        auto status = hooks.status();
        return Answer{status.installed, status.problem.value_or(std::string())};
    });
}

void ClaudeHookSwitch::set(bool installed) {
    run([installed](const ClaudeHooks& hooks) {
        const auto failure = hooks.setInstalled(installed);
        // A failure is what the user needs to read; a success shows in the switch's state.
        auto status = hooks.status();
        return Answer{status.installed, failure ? *failure : status.problem.value_or(std::string())};
    });
}

void ClaudeHookSwitch::whenKnown(std::function<void(bool)> answer) {
    m_queue->async([hooks = &m_hooks, &scheduler = m_scheduler, answer = std::move(answer)]() mutable {
        const bool installed = hooks->isInstalled();
        scheduler.post([installed, answer = std::move(answer)] { answer(installed); });
    });
}

void ClaudeHookSwitch::run(std::function<Answer(const ClaudeHooks&)> work) {
    ++m_pending;
    m_queue->async([hooks = &m_hooks, &scheduler = m_scheduler, alive = std::weak_ptr<bool>(m_alive), this,
                    work = std::move(work)] {
        Answer answer = work(*hooks);
        scheduler.post([alive, this, answer = std::move(answer)]() mutable {
            if (alive.expired()) return;
            apply(std::move(answer));
        });
    });
}

void ClaudeHookSwitch::apply(Answer answer) {
    --m_pending;
    m_installed = answer.installed;
    m_message = std::move(answer.message);
    changed.emit();
}

}  // namespace vantrelle
