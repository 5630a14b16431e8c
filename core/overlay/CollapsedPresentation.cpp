#include "overlay/CollapsedPresentation.h"

#include <fmt/format.h>

#include <cmath>

#include "support/AIFormat.h"

namespace vantrelle {

namespace {

template <typename... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <typename... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

constexpr const char* kNoReading = "--:--";

const char* alertWord(AgentAlertKind kind) {
    switch (kind) {
        case AgentAlertKind::approval:
            return "Approve";
        case AgentAlertKind::waiting:
            return "Waiting";
        case AgentAlertKind::done:
            return "Done";
    }
    return "";
}

}  // namespace

std::string compactStopwatch(double seconds) {
    const auto total = static_cast<long long>(std::max(0.0, std::floor(seconds)));
    const long long hours = total / 3600, minutes = total / 60 % 60, secs = total % 60;
    if (hours > 0) return fmt::format("{}:{:02}:{:02}", hours, minutes, secs);
    return fmt::format("{:02}:{:02}", minutes, secs);
}

std::string timerDigits(double seconds) {
    // Round up, so a timer shows 0:00 only when it has really ended.
    const auto total = static_cast<long long>(std::max(0.0, std::ceil(seconds)));
    const long long hours = total / 3600, minutes = total / 60 % 60, secs = total % 60;
    if (hours > 0) return fmt::format("{}:{:02}:{:02}", hours, minutes, secs);
    return fmt::format("{}:{:02}", minutes, secs);
}

CollapsedCells collapsedCells(const LiveActivity& activity, Date now, const TimerReadings& timers) {
    CollapsedCells c;
    std::visit(
        Overloaded{
            [&](const LiveActivity::Meeting& m) {
                c.leadingSymbol = "video.fill";
                const double left = m.start - now;
                c.trailingText = left > 0 ? timerDigits(left) : "now";
                c.ticksEverySecond = true;
            },
            [&](const LiveActivity::Media& m) {
                c.leadingIsArtwork = true;
                c.trailingIsAudioBars = m.isPlaying;
            },
            [&](const LiveActivity::Battery& b) {
                c.leadingSymbol =
                    b.charging ? "bolt.fill" : (b.percent <= 25 ? "battery.25percent" : "battery.100percent");
                c.trailingText = fmt::format("{}%", b.percent);
            },
            [&](const LiveActivity::AI& a) {
                c.leadingIsAgentMark = true;
                c.pulse = a.isActive;
                c.trailingText = a.tokens > 0 ? AIFormat::tokens(a.tokens) : "AI";
            },
            [&](const LiveActivity::Download& d) {
                c.leadingSymbol = "arrow.down.circle.fill";
                c.ring = d.progress;
                if (!d.progress) c.trailingSymbol = "checkmark.circle.fill";
            },
            [&](const LiveActivity::AgentAlert& a) {
                c.leadingIsAgentMark = true;
                c.trailingText = alertWord(a.kind);
            },
            [&](const LiveActivity::Update& u) {
                c.leadingSymbol = "arrow.down.circle.fill";
                c.trailingText = u.version;
            },
            [&](const LiveActivity::Pomodoro&) {
                c.leadingSymbol = timers.pomodoroInBreak ? "cup.and.saucer.fill" : "brain.head.profile";
                c.trailingText =
                    timers.pomodoroRemaining ? timerDigits(*timers.pomodoroRemaining) : kNoReading;
                c.ring = timers.pomodoroProgress;
                c.dimmed = timers.pomodoroPaused;
                c.ticksEverySecond = true;
            },
            [&](const LiveActivity::QuickTimer&) {
                c.leadingSymbol = "hourglass";
                c.trailingText =
                    timers.quickTimerRemaining ? timerDigits(*timers.quickTimerRemaining) : kNoReading;
                c.ticksEverySecond = true;
            },
            [&](const LiveActivity::Stopwatch&) {
                c.leadingSymbol = "stopwatch.fill";
                c.trailingText =
                    timers.stopwatchElapsed ? compactStopwatch(*timers.stopwatchElapsed) : kNoReading;
                c.ticksEverySecond = true;
            },
        },
        activity.payload);
    return c;
}

}  // namespace vantrelle
