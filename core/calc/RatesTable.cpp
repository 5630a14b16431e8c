#include "calc/RatesTable.h"

#include <charconv>
#include <nlohmann/json.hpp>

namespace vantrelle {

std::optional<RateQuote> RatesTable::rate(std::string_view from, std::string_view to) const {
    const auto usdRate = [this](std::string_view code) -> std::optional<double> {
        if (code == "USD") return 1.0;
        auto it = rates.find(code);
        return it == rates.end() ? std::nullopt : std::optional(it->second);
    };
    const auto fromRate = usdRate(from);
    const auto toRate = usdRate(to);
    if (!fromRate || !toRate || !(*fromRate > 0)) return std::nullopt;
    return RateQuote{*toRate / *fromRate, date};
}

std::optional<RatesTable> RatesTable::parse(std::string_view json, Date fetchedAt) {
    const auto root = nlohmann::json::parse(json, nullptr, false);
    if (root.is_discarded() || !root.is_object()) return std::nullopt;
    const auto rates = root.find("rates");
    const auto date = root.find("date");
    if (rates == root.end() || !rates->is_object() || date == root.end() || !date->is_string())
        return std::nullopt;
    RatesTable table;
    table.date = date->get<std::string>();
    table.fetchedAt = fetchedAt;
    for (const auto& [code, value] : rates->items()) {
        if (value.is_number()) table.rates[code] = value.get<double>();
    }
    table.rates["USD"] = 1.0;
    return table;
}

std::string RatesTable::shortDate(std::string_view date) {
    const auto field = [&](std::size_t at, std::size_t length, int& out) {
        if (at + length > date.size()) return false;
        const char* begin = date.data() + at;
        const auto [end, error] = std::from_chars(begin, begin + length, out);
        return error == std::errc() && end == begin + length;
    };
    int year = 0;
    int month = 0;
    int day = 0;
    if (date.size() != 10 || date[4] != '-' || date[7] != '-' || !field(0, 4, year) || !field(5, 2, month) ||
        !field(8, 2, day) || month < 1 || month > 12 || day < 1 || day > 31) {
        return std::string(date);
    }
    const int shortYear = year % 100;
    return std::to_string(month) + "/" + std::to_string(day) + "/" + (shortYear < 10 ? "0" : "") +
           std::to_string(shortYear);
}

}  // namespace vantrelle
