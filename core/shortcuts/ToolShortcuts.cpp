#include "shortcuts/ToolShortcuts.h"

#include <fmt/format.h>

#include "support/DebugLog.h"

namespace vantrelle {

std::string targetTitle(ShortcutTarget target) {
    return target.tool ? std::string(info(*target.tool).title) : std::string("Notch");
}

std::optional<ShortcutTarget> targetFromKey(std::string_view key) {
    if (key == "notch") return ShortcutTarget::notch();
    if (auto tab = notchTabFromRaw(key)) return ShortcutTarget::forTool(*tab);
    return std::nullopt;
}

ToolShortcuts::ToolShortcuts(DefaultsStore& defaults, HotKeys& hotKeys, Scheduler& scheduler)
    : m_defaults(defaults), m_hotKeys(hotKeys), m_scheduler(scheduler) {
    if (auto data = m_defaults.bytes(defaultsKey))
        m_combos = decodeCombos(std::string_view(reinterpret_cast<const char*>(data->data()), data->size()));
    else if (m_defaults.object(defaultsKey))
        DebugLog::write("shortcuts: stored shortcuts are not data; none read");
}

std::optional<KeyCombo> ToolShortcuts::combo(ShortcutTarget target) const {
    const auto found = m_combos.find(target.key());
    if (found == m_combos.end()) return std::nullopt;
    return found->second;
}

void ToolShortcuts::set(const std::optional<KeyCombo>& combo, ShortcutTarget target) {
    if (combo)
        m_combos[std::string(target.key())] = *combo;
    else if (auto found = m_combos.find(target.key()); found != m_combos.end())
        m_combos.erase(found);
    save();
    registerAll();
}

RecordedKey ToolShortcuts::record(const KeyPress& press, ShortcutTarget target) {
    auto recorded = recordKey(press);
    if (!recorded.combo) return recorded;
    for (const auto& [key, combo] : m_combos) {
        if (key == target.key() || combo.keyCode != recorded.combo->keyCode ||
            combo.modifiers != recorded.combo->modifiers)
            continue;
        const auto other = targetFromKey(key);
        return {std::nullopt, "Already used by " + (other ? targetTitle(*other) : key)};
    }
    set(recorded.combo, target);
    return recorded;
}

void ToolShortcuts::refused(std::uint32_t id) {
    const auto found = m_ids.find(id);
    if (found == m_ids.end() || !m_failed.insert(found->second).second) return;
    DebugLog::write([&] { return "shortcuts: the desktop refused " + found->second; });
    changed.emit();
}

void ToolShortcuts::save() const {
    const std::string json = encodeCombos(m_combos);
    m_defaults.set(defaultsKey, Bytes(json.begin(), json.end()));
}

void ToolShortcuts::registerAll() {
    for (const auto& [id, key] : m_ids) m_hotKeys.unregisterHotKey(id);
    m_ids.clear();
    std::set<std::string, std::less<>> failed;
    if (!m_handlerInstalled) {
        m_handlerInstalled = true;
        m_hotKeys.install([this](std::uint32_t id) { fire(id); });
        m_hotKeys.installRefusals([this](std::uint32_t id) { refused(id); });
    }
    std::uint32_t nextId = 1;
    for (const auto& [key, combo] : m_combos) {
        const std::uint32_t id = nextId++;
        const int status = m_hotKeys.registerHotKey(id, combo.keyCode, combo.modifiers);
        if (status == 0) {
            m_ids[id] = key;
            DebugLog::write([&tool = key] { return "shortcuts: " + tool + " registered"; });
        } else {
            failed.insert(key);
            DebugLog::write([&tool = key, &display = combo.display, status] {
                return fmt::format("shortcuts: couldn't register {} for {} ({})", display, tool, status);
            });
        }
    }
    m_failed = std::move(failed);
    changed.emit();
}

void ToolShortcuts::fire(std::uint32_t id) {
    const auto found = m_ids.find(id);
    if (found == m_ids.end()) return;
    const auto target = targetFromKey(found->second);
    if (!target) return;
    DebugLog::write([&] { return "shortcuts: fired " + found->second; });
    m_scheduler.post([this, target = *target] {
        if (onFire) onFire(target);
    });
}

}  // namespace vantrelle
