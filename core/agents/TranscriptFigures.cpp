#include "agents/TranscriptFigures.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>

#include "agents/AIPriceCache.h"
#include "support/ReadFile.h"

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

    TranscriptFigures figures;
    AIPriceCache prices;
    std::set<std::string> seen;
    std::map<std::string, int> replies;
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
        // Streaming repeats a reply under the same ids; the first one counts.
        const std::string request = json.contains("requestId") ? text(json, "requestId") : text(json, "uuid");
        // A reply without a request id can't be matched to its repeats; it counts on its own.
        if (!request.empty() && !seen.insert(text(*message, "id") + "|" + request).second) continue;

        AIUsageEvent event;
        event.model = text(*message, "model");
        event.input = count(*usage, "input_tokens");
        event.output = count(*usage, "output_tokens");
        event.cacheRead = count(*usage, "cache_read_input_tokens");
        event.cacheWrite = count(*usage, "cache_creation_input_tokens");
        figures.amount.tokens += event.totalTokens();
        figures.amount.cost += prices.cost(event);
        if (!event.model.empty()) ++replies[event.model];
    }
    int most = 0;
    for (const auto& [model, n] : replies) {
        if (n > most) most = n, figures.model = model;
    }
    return figures;
}

}  // namespace vantrelle
