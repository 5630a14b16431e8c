#include "wrapped/CursorMileage.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "support/DebugLog.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

CursorMileage::CursorMileage(std::filesystem::path file, const Clock& clock, bool demoMode)
    : m_file(std::move(file), "cursor", clock, demoMode), m_clock(clock), m_demo(demoMode) {
    load();
}

void CursorMileage::load() {
    const auto text = m_file.read();
    if (!text) return;
    const nlohmann::json json = nlohmann::json::parse(*text, nullptr, false);
    const auto days = json.is_object() ? json.find("days") : json.end();
    if (days == json.end() || !days->is_object()) {
        m_file.setAside("not a cursor mileage file");
        return;
    }
    for (const auto& [key, value] : days->items()) {
        if (value.is_number() && std::isfinite(value.get<double>()) && value.get<double>() >= 0) {
            m_days[key] = value.get<double>();
        }
    }
}

void CursorMileage::setMetresPerPixel(double metres) {
    if (std::isfinite(metres) && metres > 0) {
        // Book what was travelled at the old scale before the new one applies.
        if (m_pendingPixels > 0) flush();
        m_metresPerPixel = metres;
    }
}

void CursorMileage::record(double x, double y) noexcept {
    // PERF NOTE: runs for every pointer event; arithmetic on members only.
    if (m_hasLast) {
        const double step = std::hypot(x - m_lastX, y - m_lastY);
        if (std::isfinite(step) && step <= kMaxStepPixels) m_pendingPixels += step;
    }
    m_lastX = x;
    m_lastY = y;
    m_hasLast = true;
}

void CursorMileage::flush() {
    if (m_pendingPixels <= 0 || m_demo) {
        m_pendingPixels = 0;
        return;
    }
    m_days[LocalCalendar::dayKey(m_clock.now())] += pendingMetres();
    m_pendingPixels = 0;
    save();
}

void CursorMileage::save() {
    const std::string cutoff =
        LocalCalendar::dayKey(LocalCalendar::addDays(LocalCalendar::startOfDay(m_clock.now()), -kKeptDays));
    std::erase_if(m_days, [&cutoff](const auto& day) { return day.first < cutoff; });
    nlohmann::json days = nlohmann::json::object();
    for (const auto& [key, metres] : m_days) days[key] = metres;
    const nlohmann::json json{{"days", days}};
    if (const WriteResult written = m_file.write(json.dump(2) + "\n"); !written) {
        DebugLog::write([&] { return "cursor: could not save the mileage: " + written.error(); });
    }
}

std::vector<double> CursorMileage::meters(Date from, Date to) const {
    std::vector<double> out;
    const std::string today = LocalCalendar::dayKey(m_clock.now());
    const Date last = LocalCalendar::startOfDay(to);
    for (Date day = LocalCalendar::startOfDay(from); day <= last; day = LocalCalendar::addDays(day, 1)) {
        const std::string key = LocalCalendar::dayKey(day);
        const auto it = m_days.find(key);
        double metres = it == m_days.end() ? 0 : it->second;
        if (key == today) metres += pendingMetres();
        out.push_back(metres);
    }
    return out;
}

}  // namespace vantrelle
