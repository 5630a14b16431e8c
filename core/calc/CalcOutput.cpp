#include "calc/CalcOutput.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace vantrelle {

std::string calcText(const CalcResult& result) {
    std::string text = result.display + "\n";
    if (result.detail) text += *result.detail + "\n";
    return text;
}

std::string calcJsonLine(const CalcResult& result) {
    nlohmann::ordered_json line;
    line["kind"] = enumToRaw(CalcResult::kindRawNames, result.kind);
    line["display"] = result.display;
    line["detail"] = result.detail ? nlohmann::ordered_json(*result.detail) : nlohmann::ordered_json(nullptr);
    if (result.value && std::isfinite(*result.value)) line["value"] = *result.value;
    // What was typed may hold bytes that aren't UTF-8; they are shown as U+FFFD rather than failing.
    return line.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace vantrelle
