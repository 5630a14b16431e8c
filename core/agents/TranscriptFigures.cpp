#include "agents/TranscriptFigures.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "agents/AIPriceCache.h"
#include "agents/LogLineSink.h"
#include "support/ReadFile.h"
#include "support/Saturating.h"

namespace vantrelle {

namespace {

using Json = nlohmann::json;

std::int64_t count(const Json& usage, const char* key) {
    const auto found = usage.find(key);
    if (found == usage.end() || !found->is_number_integer()) return 0;
    return std::max<std::int64_t>(found->get<std::int64_t>(), 0);
}

std::string text(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

}  // namespace

std::optional<TranscriptFigures> readTranscriptFigures(const std::filesystem::path& transcript,
                                                       std::uintmax_t maxBytes) {
    std::error_code error;
    const auto size = std::filesystem::file_size(transcript, error);
    if (error || size > maxBytes) return std::nullopt;
    const auto contents = readWholeFile(transcript);
    if (!contents) return std::nullopt;

    std::vector<std::string> models;
    TranscriptFigures figures;
    AIPriceCache prices;
    std::map<std::string, int> replies;
    // Adds one whole reply to the totals.
    const auto take = [&](const ReplyFigures& reply) {
        AIUsageEvent event;
        event.model = models[reply.model];
        event.input = reply.input;
        event.output = reply.output;
        event.cacheRead = reply.cacheRead;
        event.cacheWrite = reply.cacheWrite;
        figures.amount.tokens = saturatingAdd(figures.amount.tokens, event.totalTokens());
        figures.amount.cost += prices.cost(event);
        if (!event.model.empty()) ++replies[event.model];
    };
    // A streamed reply is logged again as it grows, under the same ids: it counts once, at its final
    // size, as in the usage panel (ReplyFigures::merge). A reply without ids counts on its own.
    std::map<std::string, ReplyFigures> byKey;
    std::string_view rest(*contents);
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
        // Most lines carry no usage; only those are worth parsing.
        if (line.find("\"usage\"") == std::string_view::npos) continue;
        const Json json = Json::parse(line, nullptr, /*allow_exceptions=*/false);
        if (!json.is_object() || text(json, "type") != "assistant") continue;
        const auto message = json.find("message");
        if (message == json.end() || !message->is_object()) continue;
        const auto usage = message->find("usage");
        if (usage == message->end() || !usage->is_object()) continue;

        ReplyFigures reply;
        reply.input = count(*usage, "input_tokens");
        reply.output = count(*usage, "output_tokens");
        reply.cacheRead = count(*usage, "cache_read_input_tokens");
        reply.cacheWrite = count(*usage, "cache_creation_input_tokens");
        const std::string model = text(*message, "model");
        const auto known = std::find(models.begin(), models.end(), model);
        reply.model = static_cast<std::uint32_t>(known - models.begin());
        if (known == models.end()) models.push_back(model);

        const std::string request = json.contains("requestId") ? text(json, "requestId") : text(json, "uuid");
        if (request.empty()) {
            take(reply);
            continue;
        }
        const auto [slot, added] = byKey.try_emplace(text(*message, "id") + "|" + request, reply);
        if (!added) slot->second.merge(reply);
    }

    for (const auto& [key, reply] : byKey) take(reply);
    int most = 0;
    for (const auto& [model, n] : replies) {
        if (n > most) most = n, figures.model = model;
    }
    return figures;
}

}  // namespace vantrelle
