#include "StatusLineComposition.h"

#include <nlohmann/json.hpp>

#include "StatusLineCommand.h"

namespace vantrelle {

StatusLineComposition::StatusLineComposition(Deps deps)
    : m_deps(deps),
      m_publisher(deps.paths.cacheRoot() / std::string(kStatusFiguresFile), deps.scheduler,
                  // Demo figures are no one's usage: they stay in memory.
                  deps.demoMode ? StatusFiguresPublisher::Writer(
                                      [](const std::filesystem::path&, const std::string&) { return true; })
                                : StatusFiguresPublisher::Writer()),
      m_switch(deps.hooks, statusLineCommandForClaude(), deps.queues, deps.scheduler) {
    m_changed = m_deps.aiUsage.changed.connect([this] { refresh(); });
    m_deps.commands.add(std::string(kStatusFiguresRequest), [this](const nlohmann::json&) {
        if (!m_publisher.current()) return nlohmann::json{{"error", "no figures yet"}};
        return nlohmann::json{{"figures", nlohmann::json::parse(statusFiguresJson(*m_publisher.current()))}};
    });
}

void StatusLineComposition::refresh() {
    const auto& snapshot = m_deps.aiUsage.snapshot();
    static const AILogSnapshot::Events none;
    m_publisher.update(makeStatusFigures(snapshot ? snapshot->events() : none, m_deps.clock.now(),
                                         m_deps.aiUsage.today(), m_deps.aiUsage.block()));
}

}  // namespace vantrelle
