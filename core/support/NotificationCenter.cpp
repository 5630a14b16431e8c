#include "support/NotificationCenter.h"

namespace vantrelle {

Connection NotificationCenter::observe(std::string_view name, std::function<void()> handler) {
    auto it = m_signals.find(name);
    if (it == m_signals.end()) it = m_signals.try_emplace(std::string(name)).first;
    return it->second.connect(std::move(handler));
}

void NotificationCenter::post(std::string_view name) {
    if (auto it = m_signals.find(name); it != m_signals.end()) it->second.emit();
}

NotificationCenter& NotificationCenter::shared() {
    static NotificationCenter center;
    return center;
}

}  // namespace vantrelle
