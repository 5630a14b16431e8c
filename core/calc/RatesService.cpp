#include "calc/RatesService.h"

#include <fmt/format.h>

#include "calc/CurrencyNames.h"
#include "support/DebugLog.h"

namespace vantrelle {

RatesService::RatesService(HttpClient& http, DefaultsStore& defaults, const Clock& clock,
                           const Environment& environment)
    : m_http(http), m_defaults(defaults), m_clock(clock), m_environment(environment) {}

RatesService::~RatesService() = default;

const std::set<std::string, std::less<>>& RatesService::knownCodes() {
    return CurrencyNames::knownCodes();
}

std::string RatesService::endpoint() const {
    std::string base = m_environment.get(baseUrlVariable).value_or(std::string(defaultBaseUrl));
    while (!base.empty() && base.back() == '/') base.pop_back();
    return base + "/latest?from=USD";
}

bool RatesService::isFresh(const RatesTable& table) const {
    // A fetch dated in the future (the clock was set back) is treated as old, so it gets replaced.
    const double age = m_clock.now() - table.fetchedAt;
    return age >= 0 && age < ttl;
}

std::optional<RatesTable> RatesService::stored() const {
    const auto json = m_defaults.string(cacheKey);
    if (!json) return std::nullopt;
    const Date fetchedAt{m_defaults.real(fetchedAtKey).value_or(Date::distantPast().seconds)};
    auto table = RatesTable::parse(*json, fetchedAt);
    if (!table) DebugLog::write("rates: stored table doesn't parse, ignoring it");
    return table;
}

void RatesService::setMemo(RatesTable table) {
    if (m_memo == table) return;
    m_memo = std::move(table);
    changed.emit();
}

void RatesService::load(TableCompletion completion) {
    if (m_memo && isFresh(*m_memo)) {
        completion(m_memo);
        return;
    }
    if (auto table = stored(); table && isFresh(*table)) {
        setMemo(std::move(*table));
        completion(m_memo);
        return;
    }
    m_waiting.push_back(std::move(completion));
    if (m_waiting.size() > 1) return;  // a fetch is already on its way; this call shares it

    const std::string url = endpoint();
    DebugLog::write([&] { return fmt::format("rates: fetching {}", url); });
    m_http.get(url, requestTimeout,
               [this, alive = std::weak_ptr<int>(m_alive)](const HttpResponse& response) {
                   if (alive.expired()) return;
                   finishFetch(response);
               });
}

void RatesService::finishFetch(const HttpResponse& response) {
    const Date now = m_clock.now();
    std::optional<RatesTable> fetched;
    if (response.ok()) fetched = RatesTable::parse(response.body, now);

    if (fetched) {
        m_defaults.set(cacheKey, response.body);
        m_defaults.set(fetchedAtKey, now.seconds);
        setMemo(std::move(*fetched));
        deliver(m_memo);
        return;
    }

    DebugLog::write([&] {
        return response.ok()
                   ? std::string("rates: response doesn't parse")
                   : fmt::format("rates: fetch failed, status {} {}", response.status, response.error);
    });
    if (auto old = stored()) {
        setMemo(std::move(*old));
    }
    deliver(m_memo);
}

void RatesService::deliver(const std::optional<RatesTable>& table) {
    // The completions may load again; they start from an empty list.
    auto waiting = std::exchange(m_waiting, {});
    // A copy: `table` may be the cache that a completion replaces.
    const std::optional<RatesTable> answer = table;  // NOLINT(performance-unnecessary-copy-initialization)
    for (auto& completion : waiting) completion(answer);
}

void RatesService::rate(std::string_view from, std::string_view to, RateCompletion completion) {
    load([from = std::string(from), to = std::string(to),
          completion = std::move(completion)](const std::optional<RatesTable>& table) {
        completion(table ? table->rate(from, to) : std::nullopt);
    });
}

}  // namespace vantrelle
