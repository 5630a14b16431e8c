#include "toggles/QuickToggles.h"

#include "support/DebugLog.h"

namespace vantrelle {

QuickToggles::QuickToggles(Dependencies deps)
    : m_deps(std::move(deps)), m_queue(m_deps.queues.make("toggles")) {
    refreshStates();
}

QuickToggles::~QuickToggles() {
    *m_alive = false;
    endKeepAwake();
    m_queue.reset();  // finishes queued reads while the members they touch still exist
}

bool QuickToggles::isActive(QuickToggle toggle) const {
    return info(toggle).isState && m_states[static_cast<std::size_t>(toggle)];
}

void QuickToggles::perform(QuickToggle toggle, const std::function<void()>& collapse) {
    if (!m_deps.table.available(toggle)) {
        DebugLog::write(
            [&] { return "toggles: " + std::string(rawValue(toggle)) + " is not available here"; });
        return;
    }
    switch (toggle) {
        case QuickToggle::keepAwake:
            toggleKeepAwake();
            return;
        case QuickToggle::ejectDisks:
            ejectDisks();
            return;
        case QuickToggle::screenshot:
        case QuickToggle::screenshotToFile:
            if (collapse) collapse();
            break;
        case QuickToggle::lockScreen:
            if (m_deps.table.lockFallsBack())
                DebugLog::write("toggles: lock screen fell back to display sleep");
            break;
        default:
            break;
    }
    for (const auto& command :
         m_deps.table.commands(toggle, isActive(toggle), m_deps.clock.now(), m_deps.home))
        runDetached(command);
    if (info(toggle).isState) setState(toggle, !isActive(toggle));
    if (toggle == QuickToggle::darkMode) {
        m_recheck = m_deps.scheduler.schedule(kRecheckDelay, [this] { readState(QuickToggle::darkMode); });
    }
}

void QuickToggles::refreshStates() {
    for (QuickToggle toggle : {QuickToggle::darkMode, QuickToggle::mute, QuickToggle::showHiddenFiles})
        readState(toggle);
}

void QuickToggles::endKeepAwake() {
    if (m_keepAwake) m_keepAwake->terminate();
}

void QuickToggles::runDetached(const ToggleCommand& command) {
    const std::string error = m_deps.launcher.startDetached(command.program, command.arguments);
    if (!error.empty())
        DebugLog::write([&] { return "QuickToggles: " + command.program + " failed: " + error; });
}

void QuickToggles::toggleKeepAwake() {
    // The flag follows the child: it clears when the child has ended, whoever ended it.
    if (m_keepAwake) {
        m_keepAwake->terminate();
        return;
    }
    const auto command = m_deps.table.keepAwakeCommand();
    if (!command) return;
    auto started = m_deps.launcher.startChild(command->program, command->arguments,
                                              [this, alive = std::weak_ptr<bool>(m_alive)] {
                                                  if (alive.expired()) return;
                                                  m_keepAwake.reset();
                                                  setState(QuickToggle::keepAwake, false);
                                              });
    if (!started.child) {
        DebugLog::write([&] { return "toggles: systemd-inhibit failed: " + started.error; });
        return;
    }
    m_keepAwake = std::move(started.child);
    setState(QuickToggle::keepAwake, true);
}

void QuickToggles::ejectDisks() {
    if (!m_deps.disks) return;
    m_queue->async([disks = m_deps.disks] {
        const auto result = disks->ejectAll();
        for (const auto& failure : result.failures) DebugLog::write("toggles: eject " + failure);
        if (result.ejected == 0 && result.failures.empty()) DebugLog::write("toggles: nothing to eject");
    });
}

void QuickToggles::setState(QuickToggle toggle, bool on) {
    auto& state = m_states[static_cast<std::size_t>(toggle)];
    if (state == on) return;
    state = on;
    changed.emit();
}

void QuickToggles::readState(QuickToggle toggle) {
    const auto query = m_deps.table.stateQuery(toggle);
    if (!query) return;
    m_queue->async([this, alive = std::weak_ptr<bool>(m_alive), toggle, query = *query] {
        const ProcessResult result = m_deps.runner.run(query.program, query.arguments, 5.0);
        if (!result.succeeded()) {
            DebugLog::write([&] { return "toggles: reading " + std::string(rawValue(toggle)) + " failed"; });
            return;
        }
        const auto state = m_deps.table.parseState(toggle, result.standardOutput);
        if (!state) {
            DebugLog::write([&] {
                return "toggles: unreadable " + std::string(rawValue(toggle)) +
                       " reply: " + result.standardOutput;
            });
            return;
        }
        m_deps.scheduler.post([this, alive, toggle, on = *state] {
            if (!alive.expired()) setState(toggle, on);
        });
    });
}

}  // namespace vantrelle
