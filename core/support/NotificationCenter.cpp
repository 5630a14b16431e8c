#include "support/NotificationCenter.h"

namespace vantrelle {

Connection NotificationCenter::observe(std::string_view name, std::function<void()> handler) {
    return observeMessage(name, [handler = std::move(handler)](const std::string&) { handler(); });
}

Connection NotificationCenter::observeMessage(std::string_view name,
                                              std::function<void(const std::string&)> handler) {
    auto it = m_signals.find(name);
    if (it == m_signals.end()) it = m_signals.try_emplace(std::string(name)).first;
    return it->second.connect(std::move(handler));
}

void NotificationCenter::post(std::string_view name, const std::string& message) {
    if (auto it = m_signals.find(name); it != m_signals.end()) it->second.emit(message);
}

NotificationCenter& NotificationCenter::shared() {
    static NotificationCenter center;
    return center;
}

}  // namespace vantrelle
