#include "agents/StatusFigures.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <type_traits>
#include <vector>

#include "agents/AIPriceCache.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

using Json = nlohmann::json;

Json amountJson(const StatusAmount& amount) {
    return Json{{"tokens", amount.tokens}, {"cost", amount.cost}};
}

Json amountsJson(const std::map<std::string, StatusAmount>& amounts) {
    Json object = Json::object();
    for (const auto& [name, amount] : amounts) object[name] = amountJson(amount);
    return object;
}

// Reads a number field; anything else leaves `into` as it was.
template <typename T>
void take(const Json& object, const char* key, T& into) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number()) return;
    if constexpr (std::is_integral_v<T>) {
        if (found->is_number_integer()) into = found->get<T>();
    } else {
        into = found->get<T>();
    }
}

void takeDate(const Json& object, const char* key, Date& into) {
    take(object, key, into.seconds);
}

StatusAmount amountFrom(const Json& value) {
    StatusAmount amount;
    if (!value.is_object()) return amount;
    take(value, "tokens", amount.tokens);
    take(value, "cost", amount.cost);
    return amount;
}

std::map<std::string, StatusAmount> amountsFrom(const Json& object, const char* key) {
    std::map<std::string, StatusAmount> amounts;
    const auto found = object.find(key);
    if (found == object.end() || !found->is_object()) return amounts;
    for (const auto& [name, value] : found->items()) amounts[name] = amountFrom(value);
    return amounts;
}

}  // namespace

bool StatusFigures::sameFigures(const StatusFigures& other) const {
    StatusFigures copy = other;
    copy.generatedAt = generatedAt;
    return copy == *this;
}

StatusFigures makeStatusFigures(const AILogSnapshot::Events& events, Date now, const AITotals& today,
                                const std::optional<AIBlockUsage>& block) {
    StatusFigures figures;
    figures.generatedAt = now;
    figures.dayKey = LocalCalendar::dayKey(now);
    figures.today = {today.input + today.output + today.cacheRead + today.cacheWrite, today.cost};
    figures.block = block;

    AIPriceCache prices;
    std::map<std::string, StatusAmount> sessions;
    std::map<std::string, std::map<std::string, std::int64_t>> replies;  // per session, per model
    const Date horizon = now - kStatusSessionHorizon;
    for (const auto& event : events) {
        const bool recent = event.timestamp >= horizon;
        const bool inBlock = block && event.tool != AgentTool::gemini && event.timestamp >= block->start &&
                             event.timestamp <= block->lastActivity;
        if (!recent && !inBlock) continue;
        const double cost = prices.cost(event);
        if (inBlock) {
            auto& model = figures.models[event.model];
            model.tokens += event.totalTokens();
            model.cost += cost;
        }
        if (recent) {
            auto& session = sessions[event.sessionId];
            session.tokens += event.totalTokens();
            session.cost += cost;
            ++replies[event.sessionId][event.model];
        }
    }
    // A session's figures cover its whole time in the logs, not only the last day.
    for (const auto& event : events) {
        if (event.timestamp >= horizon) continue;
        const auto found = sessions.find(event.sessionId);
        if (found == sessions.end()) continue;
        found->second.tokens += event.totalTokens();
        found->second.cost += prices.cost(event);
    }

    std::vector<std::pair<std::string, StatusAmount>> busiest(sessions.begin(), sessions.end());
    std::stable_sort(busiest.begin(), busiest.end(),
                     [](const auto& a, const auto& b) { return a.second.tokens > b.second.tokens; });
    if (busiest.size() > kMaxStatusSessions) busiest.resize(kMaxStatusSessions);
    for (auto& [id, amount] : busiest) {
        const auto& counts = replies[id];
        const auto top = std::max_element(counts.begin(), counts.end(),
                                          [](const auto& a, const auto& b) { return a.second < b.second; });
        if (top != counts.end() && !top->first.empty()) figures.sessionModels[id] = top->first;
        figures.sessions.emplace(std::move(id), amount);
    }
    return figures;
}

std::string statusFiguresJson(const StatusFigures& figures) {
    Json json{{"generatedAt", figures.generatedAt.seconds}, {"day", figures.dayKey},
              {"today", amountJson(figures.today)},         {"models", amountsJson(figures.models)},
              {"sessions", amountsJson(figures.sessions)},  {"sessionModels", figures.sessionModels}};
    if (const auto& block = figures.block) {
        json["block"] = Json{{"start", block->start.seconds},
                             {"tokens", block->tokens},
                             {"cost", block->cost},
                             {"lastActivity", block->lastActivity.seconds},
                             {"budget", block->budget},
                             {"burnTokensPerMinute", block->burnTokensPerMinute},
                             {"projectedTokens", block->projectedTokens}};
    }
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<StatusFigures> parseStatusFigures(std::string_view text) {
    const Json json = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object() || !json.contains("generatedAt")) return std::nullopt;
    StatusFigures figures;
    takeDate(json, "generatedAt", figures.generatedAt);
    if (const auto day = json.find("day"); day != json.end() && day->is_string())
        figures.dayKey = day->get<std::string>();
    if (const auto today = json.find("today"); today != json.end()) figures.today = amountFrom(*today);
    figures.models = amountsFrom(json, "models");
    figures.sessions = amountsFrom(json, "sessions");
    if (const auto models = json.find("sessionModels"); models != json.end() && models->is_object()) {
        for (const auto& [id, model] : models->items()) {
            if (model.is_string()) figures.sessionModels[id] = model.get<std::string>();
        }
    }
    if (const auto block = json.find("block"); block != json.end() && block->is_object()) {
        AIBlockUsage usage;
        takeDate(*block, "start", usage.start);
        take(*block, "tokens", usage.tokens);
        take(*block, "cost", usage.cost);
        takeDate(*block, "lastActivity", usage.lastActivity);
        take(*block, "budget", usage.budget);
        take(*block, "burnTokensPerMinute", usage.burnTokensPerMinute);
        take(*block, "projectedTokens", usage.projectedTokens);
        figures.block = usage;
    }
    return figures;
}

}  // namespace vantrelle
