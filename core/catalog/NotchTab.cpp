#include "catalog/NotchTab.h"

namespace vantrelle {

namespace {

// Tools with a colour of their own rather than one of the theme's.
constexpr Color kNotesYellow{0xFF, 0xCC, 0x00};
constexpr Color kCalcGrey{0x8E, 0x8E, 0x93};
constexpr Color kMusicPink{0xFF, 0x37, 0x5F};
constexpr Color kMirrorIndigo{0x5E, 0x5C, 0xE6};
constexpr Color kSupportMint{0x63, 0xE6, 0xBE};

constexpr std::array<NotchTabInfo, kNotchTabCount> kTabs{{
    {"dashboard", "Dashboard", "square.grid.2x2",
     "Everything at a glance: events, focus, tasks, notes, toggles", NotchTheme::label},
    {"today", "Today", "calendar", "Today's calendar with Join buttons for video calls",
     NotchTheme::negative},
    {"tasks", "Tasks", "checklist", "Quick local to-do list", NotchTheme::blue},
    {"reminders", "Reminders", "bell", "Apple Reminders, tick them off from the notch", NotchTheme::orange},
    {"notes", "Notes", "note.text", "Scratchpad that saves as you type", kNotesYellow},
    {"focus", "Pomodoro", "timer", "Pomodoro with work and break modes, quick timer and stopwatch",
     NotchTheme::gold},
    {"aiUsage", "AI Usage", "sparkles",
     "Claude Code, Codex and Gemini CLI sessions, tokens and cost, plus the 5-hour window",
     NotchTheme::purple},
    {"devServers", "Dev Servers", "server.rack", "Every localhost server you're running, with Open and Stop",
     NotchTheme::teal},
    {"menuBar", "Menu Bar", "menubar.rectangle", "Find and open the menu bar icons hiding behind the notch",
     NotchTheme::orange},
    {"calc", "Calculator", "plus.forwardslash.minus",
     "Type maths, unit and currency conversions, get the answer", kCalcGrey},
    {"music", "Music", "music.note", "Now Playing for Music and Spotify", kMusicPink},
    {"shelf", "Shelf", "tray.full", "Drop files on the notch, AirDrop or drag them out later",
     NotchTheme::teal},
    {"screenTime", "Screen Time", "hourglass", "Which apps used your day, by category", NotchTheme::purple},
    {"stats", "System Analytics", "chart.bar", "CPU, memory, disk, network, battery", NotchTheme::positive},
    {"mirror", "Mirror", "camera", "Camera check before a call", kMirrorIndigo},
    {"game", "Tavo Run", "gamecontroller.fill", "A tiny endless runner to play while your agent works",
     NotchTheme::positive},
    {"support", "Support & Feedback", "lifepreserver", "Help, feedback and bug reports", kSupportMint},
}};

constexpr std::array<std::string_view, kNotchTabCount> rawNames() {
    std::array<std::string_view, kNotchTabCount> names{};
    for (std::size_t i = 0; i < kNotchTabCount; ++i) names[i] = kTabs[i].raw;
    return names;
}
constexpr auto kRawNames = rawNames();

}  // namespace

const NotchTabInfo& info(NotchTab tab) {
    return kTabs[static_cast<std::size_t>(tab)];
}

std::optional<NotchTab> notchTabFromRaw(std::string_view raw) {
    return enumFromRaw<NotchTab>(kRawNames, raw);
}

const std::array<NotchTab, kNotchTabCount>& allNotchTabs() {
    static constexpr auto tabs = allCasesOf<NotchTab, kNotchTabCount>();
    return tabs;
}

}  // namespace vantrelle
