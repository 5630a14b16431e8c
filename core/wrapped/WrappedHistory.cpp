#include "wrapped/WrappedHistory.h"

#include <ctime>
#include <nlohmann/json.hpp>

#include "support/DebugLog.h"
#include "support/JsonDepth.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

// The file stores dates as seconds since 2001-01-01 00:00:00 UTC.
constexpr double kReferenceDate = 978'307'200.0;

}  // namespace

WrappedHistory::WrappedHistory(std::filesystem::path file, const Clock& clock, bool demoMode)
    : m_file(std::move(file), "wrapped", clock, /*readOnly=*/demoMode), m_clock(clock), m_demo(demoMode) {
    load();
    if (!m_trackingSince) {
        m_trackingSince = LocalCalendar::startOfDay(m_clock.now());
        save();
    }
}

std::string WrappedHistory::key(Date date) {
    return LocalCalendar::dayKey(date);
}

void WrappedHistory::load() {
    const auto text = m_file.read();
    if (text && !parse(*text)) m_file.setAside("it isn't a Wrapped history");
}

// All or nothing: one malformed day makes the whole file unusable, so nothing of it is half taken.
bool WrappedHistory::parse(const std::string& text) {
    if (exceedsJsonDepth(text, kMaxJsonDepth)) return false;
    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (json.is_discarded() || !json.is_object() || !json.contains("days") || !json["days"].is_object())
        return false;
    std::map<std::string, Day> days;
    for (const auto& [dayKey, value] : json["days"].items()) {
        if (!value.is_object()) return false;
        Day day;
        for (auto [name, field] :
             {std::pair{"focusBlocks", &day.focusBlocks}, std::pair{"focusMinutes", &day.focusMinutes},
              std::pair{"meetingsJoined", &day.meetingsJoined}, std::pair{"aiTokens", &day.aiTokens}}) {
            const auto it = value.find(name);
            if (it == value.end() || !it->is_number_integer()) return false;
            *field = it->get<std::int64_t>();
        }
        days.emplace(dayKey, day);
    }
    std::optional<Date> since;
    if (const auto it = json.find("trackingSince"); it != json.end()) {
        if (!it->is_number()) return false;
        since = Date{it->get<double>() + kReferenceDate};
    }
    m_days = std::move(days);
    m_trackingSince = since;
    return true;
}

void WrappedHistory::save() {
    if (m_demo) return;
    const Date now = m_clock.now();
    const std::string cutoff = key(LocalCalendar::addDays(LocalCalendar::startOfDay(now), -400));
    std::erase_if(m_days, [&](const auto& entry) { return entry.first < cutoff; });
    nlohmann::json days = nlohmann::json::object();
    for (const auto& [dayKey, day] : m_days) {
        days[dayKey] = {{"focusBlocks", day.focusBlocks},
                        {"focusMinutes", day.focusMinutes},
                        {"meetingsJoined", day.meetingsJoined},
                        {"aiTokens", day.aiTokens}};
    }
    nlohmann::json root = {{"days", std::move(days)}};
    if (m_trackingSince) root["trackingSince"] = m_trackingSince->seconds - kReferenceDate;
    // A failed write is logged and dropped; the next save puts it back.
    if (const WriteResult written = m_file.write(root.dump()); !written) {
        DebugLog::write([&] { return "wrapped: " + written.error(); });
    }
}

void WrappedHistory::recordFocusBlock(std::int64_t minutes) {
    if (m_demo) return;
    Day& day = m_days[key(m_clock.now())];
    day.focusBlocks += 1;
    day.focusMinutes += std::max<std::int64_t>(minutes, 0);
    save();
}

void WrappedHistory::recordMeetingJoined() {
    if (m_demo) return;
    m_days[key(m_clock.now())].meetingsJoined += 1;
    save();
}

void WrappedHistory::recordAITokens(const std::vector<DayTokens>& entries) {
    if (m_demo) return;
    bool changed = false;
    for (const auto& entry : entries) {
        const std::string dayKey = key(entry.date);
        auto it = m_days.find(dayKey);
        const std::int64_t stored = it == m_days.end() ? 0 : it->second.aiTokens;
        if (stored < entry.tokens) {
            m_days[dayKey].aiTokens = entry.tokens;
            changed = true;
        }
    }
    if (changed) save();
}

}  // namespace vantrelle
