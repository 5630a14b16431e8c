#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "catalog/ShortcutTarget.h"
#include "platform/DefaultsStore.h"
#include "platform/HotKeys.h"
#include "platform/Scheduler.h"
#include "shortcuts/KeyCombo.h"
#include "support/Signal.h"

namespace vantrelle {

// The user's global shortcuts: one key combination per tool, or for the notch as a whole. Kept in the
// user defaults and registered with the desktop; a press opens the notch on its target. Main thread.
class ToolShortcuts {
public:
    static constexpr std::string_view defaultsKey = "toolShortcuts";

    ToolShortcuts(DefaultsStore& defaults, HotKeys& hotKeys, Scheduler& scheduler);

    [[nodiscard]] std::optional<KeyCombo> combo(ShortcutTarget target) const;
    // Stores the combo (none removes the binding) and registers everything anew.
    void set(const std::optional<KeyCombo>& combo, ShortcutTarget target);
    // The recorder: a key press for `target` becomes its combo, or the reason it can't. A combo that
    // another target already uses is refused. Nothing changes when the answer has no combo.
    RecordedKey record(const KeyPress& press, ShortcutTarget target);

    // Drops every registration and registers every combo again, with ids fresh for this pass.
    void registerAll();
    // A press of the combo registered under `id` in the current pass.
    void fire(std::uint32_t id);
    // The desktop refused `id` of the current pass after accepting it first.
    void refused(std::uint32_t id);

    [[nodiscard]] const ComboMap& combos() const { return m_combos; }
    // Targets whose combo the desktop refused, by key.
    [[nodiscard]] const std::set<std::string, std::less<>>& failed() const { return m_failed; }
    [[nodiscard]] const std::map<std::uint32_t, std::string>& ids() const { return m_ids; }

    // Set by the overlay: opens or closes the notch on the target.
    std::function<void(ShortcutTarget)> onFire;
    // After every change of the combos or of what failed.
    Signal<> changed;

private:
    void save() const;

    DefaultsStore& m_defaults;
    HotKeys& m_hotKeys;
    Scheduler& m_scheduler;
    ComboMap m_combos;
    std::set<std::string, std::less<>> m_failed;
    std::map<std::uint32_t, std::string> m_ids;
    bool m_handlerInstalled = false;
};

// The title a target goes by in the recorder's texts: the tool's, or "Notch".
[[nodiscard]] std::string targetTitle(ShortcutTarget target);
// The target a stored key names; absent for a key that names no tool.
[[nodiscard]] std::optional<ShortcutTarget> targetFromKey(std::string_view key);

}  // namespace vantrelle
