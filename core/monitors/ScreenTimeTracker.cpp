#include "monitors/ScreenTimeTracker.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

#include "monitors/ScreenTimeReport.h"
#include "support/DebugLog.h"
#include "support/LocalCalendar.h"
#include "support/ReadFile.h"

namespace vantrelle {
namespace {

// The notch itself is never counted: the user looking at it is looking at what it reports on.
constexpr std::string_view kOwnId = "vantrelle";

std::optional<FrontmostApp> counted(std::optional<FrontmostApp> app) {
    if (!app || app->id.empty() || app->id == kOwnId) return std::nullopt;
    if (app->name.empty()) app->name = app->id;
    return app;
}

template <typename Pairs>
void sortLargestFirst(Pairs& pairs) {
    std::sort(pairs.begin(), pairs.end(), [](const auto& a, const auto& b) {
        return a.second != b.second ? a.second > b.second : a.first < b.first;
    });
}

}  // namespace

ScreenTimeTracker::ScreenTimeTracker(Deps deps) : m_deps(std::move(deps)) {}

ScreenTimeDay ScreenTimeTracker::demoDay() {
    return {
        {"org.mozilla.firefox", {"Firefox", 5520, "/usr/lib/firefox/firefox"}},
        {"code", {"Visual Studio Code", 4440, "/usr/share/code/code"}},
        {"google-chrome", {"Google Chrome", 2460, "/opt/google/chrome/chrome"}},
        {"org.gnome.Terminal", {"Terminal", 1980, "/usr/bin/gnome-terminal"}},
        {"org.telegram.desktop", {"Telegram", 840, ""}},
        {"org.mozilla.Thunderbird", {"Thunderbird", 660, ""}},
        {"com.spotify.Client", {"Spotify", 540, ""}},
        {"md.obsidian.Obsidian", {"Obsidian", 420, ""}},
        {"org.gnome.Nautilus", {"Files", 300, "/usr/bin/nautilus"}},
    };
}

void ScreenTimeTracker::start() {
    if (m_started) return;
    m_started = true;
    const Date now = m_deps.clock.now();
    if (m_deps.demoMode) {
        m_usage = demoDay();
        m_dayKey = LocalCalendar::dayKey(now);
        m_front = FrontmostApp{"org.mozilla.firefox", "Firefox", "/usr/lib/firefox/firefox"};
        publish();
        return;
    }
    openDay(LocalCalendar::dayKey(now));
    m_front = counted(m_deps.activity.frontmost());
    m_currentSince = m_front ? std::optional(now) : std::nullopt;
    m_lastTick = now;
    publish();
    m_timer = m_deps.scheduler.repeat(kTickInterval, [this] { tick(); });
}

void ScreenTimeTracker::openDay(const std::string& key) {
    m_dayKey = key;
    m_usage.clear();
    m_file.emplace(dayFile(key), "screentime", m_deps.clock, m_deps.demoMode);
    const auto text = m_file->read();
    if (!text) return;
    if (auto day = decodeScreenTimeDay(*text)) {
        m_usage = std::move(*day);
    } else {
        m_file->setAside("not a screen time day");
    }
}

void ScreenTimeTracker::tick() {
    accrue();
    flushIfDue(false);
}

void ScreenTimeTracker::accrue() {
    const Date now = m_deps.clock.now();
    const double dt = now - m_lastTick;
    m_lastTick = now;
    rolloverIfNeeded(now);
    if (!(dt > 0 && dt < kMaxTickGap) || m_locked || m_asleep || !m_front) return;
    // A whole tick in which the user turned out to be away is lost, not only its idle part.
    if (!(m_deps.activity.idleSeconds() < kIdleThreshold)) return;
    ScreenTimeEntry& entry = m_usage[m_front->id];
    if (entry.name.empty()) entry.name = m_front->name;
    if (entry.path.empty()) entry.path = m_front->path;
    entry.seconds += dt;
    m_dirty = true;
    publish();
}

void ScreenTimeTracker::rolloverIfNeeded(Date now) {
    const std::string key = LocalCalendar::dayKey(now);
    if (key == m_dayKey) return;
    flushIfDue(true);  // the old day's file is complete before the new day starts
    m_sessions.clear();
    openDay(key);
    const bool counting = m_front && !m_locked && !m_asleep;
    m_currentSince = counting ? std::optional(now) : std::nullopt;
    publish();
}

void ScreenTimeTracker::flushIfDue(bool force) {
    if (!m_dirty || !m_file) return;
    const Date now = m_deps.clock.now();
    if (!force && now - m_lastFlush < kFlushInterval) return;
    if (const WriteResult written = m_file->write(encodeScreenTimeDay(m_usage)); !written) {
        DebugLog::write([&] { return "screentime: could not save " + m_dayKey + ": " + written.error(); });
        return;  // still dirty: the next tick tries again
    }
    m_lastFlush = now;
    m_dirty = false;
}

void ScreenTimeTracker::switchTo(std::optional<FrontmostApp> app) {
    if (m_deps.demoMode || !m_started) return;
    accrue();
    app = counted(std::move(app));
    if ((app ? app->id : "") == (m_front ? m_front->id : "") && app.has_value() == m_front.has_value())
        return;
    closeSession();
    m_front = std::move(app);
    const bool counting = m_front && !m_locked && !m_asleep;
    m_currentSince = counting ? std::optional(m_deps.clock.now()) : std::nullopt;
    publish();
}

void ScreenTimeTracker::closeSession() {
    if (!m_currentSince) return;
    const double length = m_deps.clock.now() - *m_currentSince;
    if (length < kMinSession) return;
    m_sessions.push_back(length);
    if (m_sessions.size() > kMaxSessions) m_sessions.erase(m_sessions.begin());
}

void ScreenTimeTracker::setLocked(bool locked) {
    setFlag(m_locked, locked);
}
void ScreenTimeTracker::setAsleep(bool asleep) {
    setFlag(m_asleep, asleep);
}

void ScreenTimeTracker::setFlag(bool& flag, bool value) {
    if (m_deps.demoMode || !m_started || flag == value) return;
    accrue();
    if (value) {
        closeSession();
        m_currentSince.reset();
    }
    flag = value;
    if (!value && !m_locked && !m_asleep) resumeAfterFlags();
    publish();
}

void ScreenTimeTracker::resumeAfterFlags() {
    const Date now = m_deps.clock.now();
    m_front = counted(m_deps.activity.frontmost());
    m_currentSince = m_front ? std::optional(now) : std::nullopt;
    m_lastTick = now;  // the time away is nobody's
}

void ScreenTimeTracker::publish() {
    std::vector<AppUsage> today;
    today.reserve(m_usage.size());
    for (const auto& [id, entry] : m_usage) today.push_back({id, entry.name, entry.seconds, entry.path});
    std::sort(today.begin(), today.end(), [](const AppUsage& a, const AppUsage& b) {
        return a.seconds != b.seconds ? a.seconds > b.seconds : a.id < b.id;
    });
    m_today = std::move(today);
    m_current.reset();
    if (m_front && !m_locked && !m_asleep) {
        const auto it = m_usage.find(m_front->id);
        m_current = AppUsage{m_front->id, m_front->name, it == m_usage.end() ? 0.0 : it->second.seconds,
                             m_front->path};
    }
    if (m_deps.demoMode) {
        m_averageSession = 680;
        m_longestSession = 2820;
    } else {
        std::vector<double> lengths = m_sessions;
        if (m_currentSince) {
            const double running = m_deps.clock.now() - *m_currentSince;
            if (running >= kMinSession) lengths.push_back(running);
        }
        m_averageSession = lengths.empty() ? 0
                                           : std::accumulate(lengths.begin(), lengths.end(), 0.0) /
                                                 static_cast<double>(lengths.size());
        m_longestSession = lengths.empty() ? 0 : *std::max_element(lengths.begin(), lengths.end());
    }
    changed.emit();
}

double ScreenTimeTracker::totalSeconds() const {
    return std::accumulate(m_today.begin(), m_today.end(), 0.0,
                           [](double sum, const AppUsage& usage) { return sum + usage.seconds; });
}

std::vector<std::pair<AppCategory, double>> ScreenTimeTracker::byCategory() const {
    return categoryTotals(m_today);
}

std::vector<std::pair<std::string, double>> ScreenTimeTracker::usage(Date from, Date to) const {
    std::map<std::string, ScreenTimeEntry> sums;
    const auto add = [&](const ScreenTimeDay& day, double factor) {
        for (const auto& [id, entry] : day) {
            ScreenTimeEntry& sum = sums[id];
            if (sum.name.empty()) sum.name = entry.name;
            sum.seconds += entry.seconds * factor;
        }
    };
    if (m_deps.demoMode) {
        add(demoDay(), std::max(1.0, std::floor((to - from) / 86400.0)) * 0.7);
    } else {
        const Date last = LocalCalendar::startOfDay(to);
        for (Date day = LocalCalendar::startOfDay(from); day <= last; day = LocalCalendar::addDays(day, 1)) {
            const std::string key = LocalCalendar::dayKey(day);
            if (key == m_dayKey) {
                add(m_usage, 1.0);
            } else if (const auto text = readWholeFile(dayFile(key))) {
                add(decodeScreenTimeDay(*text).value_or(ScreenTimeDay{}), 1.0);
            }
        }
    }
    std::vector<std::pair<std::string, double>> out;
    for (auto& [id, entry] : sums) out.emplace_back(std::move(entry.name), entry.seconds);
    sortLargestFirst(out);
    return out;
}

}  // namespace vantrelle
