#pragma once

#include <optional>
#include <string>

#include "activity/LiveActivity.h"

namespace vantrelle {

// Live readings of the timers that the closed notch counts down or up each second.
struct TimerReadings {
    std::optional<double> pomodoroRemaining;
    std::optional<double> pomodoroProgress;  // 0...1, drawn as the ring around the digits
    bool pomodoroInBreak = false;
    bool pomodoroPaused = false;
    std::optional<double> quickTimerRemaining;
    std::optional<double> stopwatchElapsed;
};

// What sits left and right of the notch for one activity.
struct CollapsedCells {
    std::string leadingSymbol;  // a symbol name; empty when the leading cell is the agent mark or artwork
    bool leadingIsAgentMark = false;
    bool leadingIsArtwork = false;
    bool pulse = false;  // the agent mark pulses while the agent works
    std::string trailingText;
    std::string trailingSymbol;  // a symbol instead of text, e.g. a finished download's tick
    std::optional<double> ring;  // a progress ring, 0...1
    bool trailingIsAudioBars = false;
    bool dimmed = false;            // a paused timer
    bool ticksEverySecond = false;  // the text depends on the clock

    bool operator==(const CollapsedCells&) const = default;
};

[[nodiscard]] CollapsedCells collapsedCells(const LiveActivity& activity, Date now,
                                            const TimerReadings& timers);

// "%d:%02d:%02d" from an hour on, else "%02d:%02d".
[[nodiscard]] std::string compactStopwatch(double seconds);
// Remaining time as "m:ss", or "h:mm:ss" from an hour on; never negative.
[[nodiscard]] std::string timerDigits(double seconds);

}  // namespace vantrelle
