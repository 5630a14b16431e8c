#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "monitors/AppUsage.h"
#include "monitors/ScreenTimeDayFile.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/ScreenActivity.h"
#include "support/Signal.h"
#include "support/StoreFile.h"

namespace vantrelle {

// How long each application was in front while the user was really there. One JSON file per local
// day under `directory`, flushed at most once a minute and at quit, so a crash loses about a minute.
// Main thread only.
class ScreenTimeTracker {
public:
    static constexpr double kIdleThreshold = 120.0;
    static constexpr double kTickInterval = 15.0;
    static constexpr double kFlushInterval = 60.0;
    static constexpr double kMaxTickGap = 60.0;  // a longer gap is a suspended machine: thrown away
    static constexpr double kMinSession = 2.0;   // a flick through an application isn't a session
    static constexpr std::size_t kMaxSessions = 2000;

    struct Deps {
        Scheduler& scheduler;
        const Clock& clock;
        ScreenActivity& activity;
        std::filesystem::path directory;  // "<data root>/screentime"
        bool demoMode = false;
    };

    explicit ScreenTimeTracker(Deps deps);

    // Reads today's file so a restart continues the day, takes the frontmost application and starts
    // the tick. Once only.
    void start();
    // Writes what is unsaved; for the end of the process.
    void flushNow() { flushIfDue(true); }

    // Events from the desktop.
    void switchTo(std::optional<FrontmostApp> app);
    void setLocked(bool locked);
    void setAsleep(bool asleep);
    // The timer's work: credits the time since the last tick, then flushes when due.
    void tick();

    [[nodiscard]] const std::vector<AppUsage>& today() const { return m_today; }
    [[nodiscard]] const std::optional<AppUsage>& current() const { return m_current; }
    [[nodiscard]] const std::optional<Date>& currentSince() const { return m_currentSince; }
    [[nodiscard]] double averageSessionSeconds() const { return m_averageSession; }
    [[nodiscard]] double longestSessionSeconds() const { return m_longestSession; }
    [[nodiscard]] double totalSeconds() const;
    // Seconds by category over today, largest first, empty categories left out.
    [[nodiscard]] std::vector<std::pair<AppCategory, double>> byCategory() const;
    // Name and seconds summed by application over the local days from the day of `from` to the day of
    // `to`, inclusive, largest first. Today comes from memory, other days from their files.
    [[nodiscard]] std::vector<std::pair<std::string, double>> usage(Date from, Date to) const;
    [[nodiscard]] const std::string& dayKey() const { return m_dayKey; }
    [[nodiscard]] bool isDirty() const { return m_dirty; }
    [[nodiscard]] const std::vector<double>& sessions() const { return m_sessions; }
    [[nodiscard]] std::filesystem::path dayFile(const std::string& key) const {
        return m_deps.directory / (key + ".json");
    }

    Signal<> changed;

    [[nodiscard]] static ScreenTimeDay demoDay();

private:
    void accrue();
    void rolloverIfNeeded(Date now);
    void flushIfDue(bool force);
    void closeSession();
    void setFlag(bool& flag, bool value);
    void resumeAfterFlags();
    void publish();
    void openDay(const std::string& key);

    Deps m_deps;
    std::optional<StoreFile> m_file;
    ScreenTimeDay m_usage;
    std::string m_dayKey;
    std::optional<FrontmostApp> m_front;
    std::vector<double> m_sessions;
    Date m_lastTick;
    Date m_lastFlush = Date::distantPast();
    bool m_dirty = false;
    bool m_locked = false;
    bool m_asleep = false;
    bool m_started = false;
    RepeatingTimer m_timer;

    std::vector<AppUsage> m_today;
    std::optional<AppUsage> m_current;
    std::optional<Date> m_currentSince;
    double m_averageSession = 0;
    double m_longestSession = 0;
};

}  // namespace vantrelle
