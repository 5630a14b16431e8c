#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Environment.h"
#include "platform/Scheduler.h"

namespace vantrelle {

// The launch hooks in the order they are evaluated. Each subsystem registers the rows it owns.
enum class LaunchHookSlot {
    testShare,        // VANTRELLE_TEST_SHARE
    testWrappedOut,   // VANTRELLE_TEST_WRAPPED_OUT
    openWrapped,      // VANTRELLE_OPEN_WRAPPED
    testStopPort,     // VANTRELLE_TEST_STOP_PORT
    testConvertFile,  // VANTRELLE_TEST_CONVERT_FILE
    testConvert,      // VANTRELLE_TEST_CONVERT
    openSettings,     // VANTRELLE_OPEN_SETTINGS
    testCard,         // VANTRELLE_TEST_CARD
    testPermission,   // VANTRELLE_TEST_PERMISSION
    startExpanded,    // VANTRELLE_START_EXPANDED
};

// An environment hook for scripted runs: when `variable` holds a value that `fires` accepts, `action`
// runs on the main queue `delay` seconds later, so every hook runs after the launch has returned.
struct LaunchHook {
    LaunchHookSlot slot;
    std::string variable;
    std::function<bool(const std::string& value)> fires;
    double delay = 0;
    std::function<void(const std::string& value)> action;

    // The conditions the hooks use.
    [[nodiscard]] static bool isOne(const std::string& value) { return value == "1"; }
    [[nodiscard]] static bool isSet(const std::string&) { return true; }
    [[nodiscard]] static bool isDirectory(const std::string& value);
    [[nodiscard]] static bool isInteger(const std::string& value);
};

// The table of launch hooks, kept in slot order.
class LaunchHooks {
public:
    void add(LaunchHook hook);
    [[nodiscard]] const std::vector<LaunchHook>& hooks() const { return m_hooks; }

    // Returns how many hooks fired.
    int evaluate(const Environment& environment, Scheduler& scheduler) const;

private:
    std::vector<LaunchHook> m_hooks;
};

}  // namespace vantrelle
