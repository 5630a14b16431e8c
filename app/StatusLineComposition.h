#pragma once

#include "agents/AIUsageModel.h"
#include "agents/ClaudeStatusLineSwitch.h"
#include "agents/StatusFiguresPublisher.h"
#include "instance/InstanceCommands.h"
#include "support/AppPaths.h"
#include "support/Signal.h"

namespace vantrelle {

// Hands the usage figures to `vantrelle statusline` and `vantrelle usage blocks --live`: from memory
// over the instance channel, and in a small file in the cache folder kept current as they change. Also
// the switch that installs the status line.
class StatusLineComposition {
public:
    struct Deps {
        const AppPaths& paths;
        AIUsageModel& aiUsage;
        Scheduler& scheduler;
        const Clock& clock;
        InstanceCommands& commands;
        const ClaudeHooks& hooks;
        QueueFactory& queues;
        bool demoMode = false;
    };

    explicit StatusLineComposition(Deps deps);

    // Writes figures still waiting for their debounce; at the end of the process.
    void flush() { m_publisher.flush(); }
    // The Settings switch that puts `vantrelle statusline` in Claude Code's settings.
    [[nodiscard]] ClaudeStatusLineSwitch& statusLineSwitch() { return m_switch; }

private:
    void refresh();

    Deps m_deps;
    StatusFiguresPublisher m_publisher;
    Connection m_changed;
    ClaudeStatusLineSwitch m_switch;
};

}  // namespace vantrelle
