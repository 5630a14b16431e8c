#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <memory>

#include "catalog/QuickToggle.h"
#include "platform/Clock.h"
#include "platform/ProcessLauncher.h"
#include "platform/ProcessRunner.h"
#include "platform/RemovableDisks.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"
#include "toggles/ToggleTable.h"

namespace vantrelle {

// The row of one-tap system switches and actions. Each is a desktop program launched without waiting,
// bound by the table to what this desktop has; keep awake holds a child until it is tapped off or the
// model goes. States are read from the desktop on the "toggles" queue.
class QuickToggles {
public:
    // After a dark mode switch, the desktop's own answer replaces ours.
    static constexpr double kRecheckDelay = 1.0;

    struct Dependencies {
        ToggleTable table;
        ProcessLauncher& launcher;
        ProcessRunner& runner;  // reads states, on the queue
        RemovableDisks* disks;  // null where there is no disk service
        QueueFactory& queues;
        Scheduler& scheduler;
        const Clock& clock;
        std::filesystem::path home;
    };

    explicit QuickToggles(Dependencies deps);
    // Ends the keep-awake child: it would otherwise outlive the program.
    ~QuickToggles();
    QuickToggles(const QuickToggles&) = delete;
    QuickToggles& operator=(const QuickToggles&) = delete;

    [[nodiscard]] const ToggleTable& table() const { return m_deps.table; }
    // A state toggle's state; false for an action.
    [[nodiscard]] bool isActive(QuickToggle toggle) const;
    // `collapse` closes the notch panel, for the screenshots that must not have it in the way.
    void perform(QuickToggle toggle, const std::function<void()>& collapse = {});
    // Reads dark mode, mute and hidden files from the desktop again.
    void refreshStates();
    // At quit: the child goes with the program.
    void endKeepAwake();

    Signal<> changed;

private:
    void runDetached(const ToggleCommand& command);
    void toggleKeepAwake();
    void ejectDisks();
    void setState(QuickToggle toggle, bool on);
    void readState(QuickToggle toggle);

    Dependencies m_deps;
    std::unique_ptr<SerialQueue> m_queue;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::array<bool, kQuickToggleCount> m_states{};
    std::unique_ptr<ChildProcess> m_keepAwake;
    WorkItem m_recheck;
};

}  // namespace vantrelle
