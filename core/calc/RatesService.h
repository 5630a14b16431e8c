#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "calc/RatesTable.h"
#include "platform/Clock.h"
#include "platform/DefaultsStore.h"
#include "platform/Environment.h"
#include "platform/HttpClient.h"
#include "support/SharedInstance.h"
#include "support/Signal.h"

namespace vantrelle {

// Exchange rates for the calculator: one table against the US dollar, fetched at most every 12 hours
// and kept in memory and in the defaults. Lives on the main thread: its calls are serialised there,
// the network wait is the HTTP client's, and requests made while a fetch is under way share it.
class RatesService {
public:
    static constexpr std::string_view cacheKey = "calcRatesJSON";           // the raw JSON response
    static constexpr std::string_view fetchedAtKey = "calcRatesFetchedAt";  // seconds since 1970
    static constexpr double ttl = 43'200;
    static constexpr double requestTimeout = 8;
    // A public exchange-rate service; VANTRELLE_RATES_URL replaces the base for scripted runs and tests.
    static constexpr std::string_view defaultBaseUrl = "https://api.frankfurter.app";
    static constexpr std::string_view baseUrlVariable = "VANTRELLE_RATES_URL";

    using TableCompletion = std::function<void(const std::optional<RatesTable>&)>;
    using RateCompletion = std::function<void(std::optional<RateQuote>)>;

    RatesService(HttpClient& http, DefaultsStore& defaults, const Clock& clock,
                 const Environment& environment);
    ~RatesService();
    RatesService(const RatesService&) = delete;
    RatesService& operator=(const RatesService&) = delete;

    [[nodiscard]] static RatesService& shared() { return SharedInstance<RatesService>::get(); }
    [[nodiscard]] static const std::set<std::string, std::less<>>& knownCodes();

    // The table to use: memory if fresh, else the defaults if fresh, else the network; when the fetch
    // fails, whatever is stored, however old. Completes at once when no fetch is needed, otherwise on
    // the main thread when the fetch ends. Nothing when no table can be had.
    void load(TableCompletion completion);
    // Loads, then gives the rate between two codes.
    void rate(std::string_view from, std::string_view to, RateCompletion completion);

    // The table in memory, of any age: what the calculator can use without waiting.
    [[nodiscard]] const std::optional<RatesTable>& memo() const { return m_memo; }
    [[nodiscard]] bool isFetching() const { return !m_waiting.empty(); }
    // "<base>/latest?from=USD".
    [[nodiscard]] std::string endpoint() const;

    // Emitted when the table in memory changes.
    Signal<> changed;

private:
    [[nodiscard]] bool isFresh(const RatesTable& table) const;
    [[nodiscard]] std::optional<RatesTable> stored() const;
    void setMemo(RatesTable table);
    void finishFetch(const HttpResponse& response);
    void deliver(const std::optional<RatesTable>& table);

    HttpClient& m_http;
    DefaultsStore& m_defaults;
    const Clock& m_clock;
    const Environment& m_environment;
    std::optional<RatesTable> m_memo;
    std::vector<TableCompletion> m_waiting;  // non-empty exactly while a fetch is in flight
    std::shared_ptr<int> m_alive = std::make_shared<int>(0);
};

}  // namespace vantrelle
