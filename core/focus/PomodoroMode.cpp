#include "focus/PomodoroMode.h"

#include "catalog/AppSettings.h"
#include "support/RawEnum.h"

namespace vantrelle {

namespace {
constexpr std::array<std::string_view, 5> kModeRaw{"work", "shortBreak", "longBreak", "quickTimer", "custom"};
constexpr std::array<std::string_view, 5> kModeTitle{"Focus", "Short Break", "Long Break", "Quick Timer",
                                                     "Custom"};
constexpr std::array<std::string_view, 3> kStatusRaw{"idle", "running", "paused"};
}  // namespace

std::string_view rawValue(PomodoroMode mode) {
    return enumToRaw(kModeRaw, mode);
}

std::optional<PomodoroMode> pomodoroModeFromRaw(std::string_view raw) {
    return enumFromRaw<PomodoroMode>(kModeRaw, raw);
}

std::string_view rawValue(PomodoroStatus status) {
    return enumToRaw(kStatusRaw, status);
}

std::string_view title(PomodoroMode mode) {
    return enumToRaw(kModeTitle, mode);
}

bool isBreak(PomodoroMode mode) {
    return mode == PomodoroMode::shortBreak || mode == PomodoroMode::longBreak;
}

bool isPlainTimer(PomodoroMode mode) {
    return mode == PomodoroMode::quickTimer || mode == PomodoroMode::custom;
}

std::int64_t minutes(PomodoroMode mode, const AppSettings& settings) {
    switch (mode) {
        case PomodoroMode::work:
            return settings.focusMinutes();
        case PomodoroMode::shortBreak:
            return settings.breakMinutes();
        case PomodoroMode::longBreak:
            return settings.longBreakMinutes();
        case PomodoroMode::quickTimer:
            return settings.quickTimerMinutes();
        case PomodoroMode::custom:
            return settings.customTimerMinutes();
    }
    return settings.focusMinutes();
}

}  // namespace vantrelle
