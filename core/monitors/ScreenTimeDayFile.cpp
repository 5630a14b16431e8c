#include "monitors/ScreenTimeDayFile.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace vantrelle {

std::string encodeScreenTimeDay(const ScreenTimeDay& day) {
    nlohmann::json object = nlohmann::json::object();
    for (const auto& [id, entry] : day) {
        nlohmann::json item{{"name", entry.name}, {"seconds", entry.seconds}};
        if (!entry.path.empty()) item["bundlePath"] = entry.path;
        object[id] = std::move(item);
    }
    return object.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::optional<ScreenTimeDay> decodeScreenTimeDay(std::string_view text) {
    const nlohmann::json object = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!object.is_object()) return std::nullopt;
    ScreenTimeDay day;
    for (const auto& [id, item] : object.items()) {
        if (!item.is_object()) continue;
        const auto name = item.find("name");
        const auto seconds = item.find("seconds");
        if (name == item.end() || !name->is_string() || seconds == item.end() || !seconds->is_number())
            continue;
        const double value = seconds->get<double>();
        if (!std::isfinite(value) || value < 0) continue;
        ScreenTimeEntry entry{name->get<std::string>(), value, {}};
        if (const auto path = item.find("bundlePath"); path != item.end() && path->is_string()) {
            entry.path = path->get<std::string>();
        }
        day[id] = std::move(entry);
    }
    return day;
}

}  // namespace vantrelle
