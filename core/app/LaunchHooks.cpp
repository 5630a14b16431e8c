#include "app/LaunchHooks.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "support/DebugLog.h"

namespace vantrelle {

bool LaunchHook::isDirectory(const std::string& value) {
    std::error_code error;
    return !value.empty() && std::filesystem::is_directory(value, error);
}

bool LaunchHook::isInteger(const std::string& value) {
    long long number = 0;
    const auto* end = value.data() + value.size();
    auto [ptr, ec] = std::from_chars(value.data(), end, number);
    return !value.empty() && ec == std::errc() && ptr == end;
}

void LaunchHooks::add(LaunchHook hook) {
    auto at =
        std::upper_bound(m_hooks.begin(), m_hooks.end(), hook.slot,
                         [](LaunchHookSlot slot, const LaunchHook& other) { return slot < other.slot; });
    m_hooks.insert(at, std::move(hook));
}

int LaunchHooks::evaluate(const Environment& environment, Scheduler& scheduler) const {
    int fired = 0;
    for (const auto& hook : m_hooks) {
        auto value = environment.get(hook.variable);
        if (!value || !hook.fires(*value)) continue;
        ++fired;
        DebugLog::write(
            [&] { return "launch: hook " + hook.variable + " in " + std::to_string(hook.delay) + " s"; });
        scheduler.after(hook.delay, [action = hook.action, value = *value] { action(value); });
    }
    return fired;
}

}  // namespace vantrelle
