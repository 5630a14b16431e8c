#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrelle {

class AppSettings;

// What the focus timer counts, or has queued. A long break runs as a break phase in the long-break mode.
enum class PomodoroPhase { focus, shortBreak };
enum class PomodoroStatus { idle, running, paused };
// The modes in picker order; their raw names are what is stored.
enum class PomodoroMode { work, shortBreak, longBreak, quickTimer, custom };

inline constexpr std::array<PomodoroMode, 5> kPomodoroModes{PomodoroMode::work, PomodoroMode::shortBreak,
                                                            PomodoroMode::longBreak, PomodoroMode::quickTimer,
                                                            PomodoroMode::custom};

[[nodiscard]] std::string_view rawValue(PomodoroMode mode);
[[nodiscard]] std::optional<PomodoroMode> pomodoroModeFromRaw(std::string_view raw);
[[nodiscard]] std::string_view rawValue(PomodoroStatus status);
// "Focus", "Short Break", "Long Break", "Quick Timer", "Custom".
[[nodiscard]] std::string_view title(PomodoroMode mode);
[[nodiscard]] bool isBreak(PomodoroMode mode);
// A quick or custom timer is not a session: no history, count, notification or choice.
[[nodiscard]] bool isPlainTimer(PomodoroMode mode);
// The mode's length in minutes, read from the settings at each use.
[[nodiscard]] std::int64_t minutes(PomodoroMode mode, const AppSettings& settings);

}  // namespace vantrelle
