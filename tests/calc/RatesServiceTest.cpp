#include <gtest/gtest.h>

#include <functional>

#include "calc/RatesService.h"
#include "fakes/FakeHttpClient.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::FakeHttpClient;

constexpr const char* kResponse =
    R"({"amount":1.0,"base":"USD","date":"2025-01-03","rates":{"EUR":0.9,"GBP":0.8}})";
constexpr const char* kOlderResponse = R"({"base":"USD","date":"2024-12-01","rates":{"EUR":0.95}})";

class RatesServiceTest : public ::testing::Test {
protected:
    RatesService& service() {
        if (!m_service) m_service.emplace(http, defaults, scheduler, environment);
        return *m_service;
    }
    // A fresh process: nothing in memory, the same defaults.
    RatesService& restart() {
        m_service.reset();
        return service();
    }

    // Asks for a rate and runs the main queue; the answer, or nullopt inside if none came yet.
    std::optional<std::optional<RateQuote>> ask(std::string_view from, std::string_view to) {
        auto answer = std::make_shared<std::optional<std::optional<RateQuote>>>();
        service().rate(from, to, [answer](std::optional<RateQuote> quote) { *answer = quote; });
        scheduler.runUntilIdle();
        return *answer;
    }

    // Asks, and answers the fetch that starts.
    void fetch() {
        (void)ask("USD", "EUR");
        http.reply(200, kResponse);
        scheduler.runUntilIdle();
    }
    // Asks for dollars in euros and gives what came back once `answerFetch` has answered the request.
    std::optional<std::optional<RateQuote>> askAnswered(const std::function<void()>& answerFetch) {
        std::optional<std::optional<RateQuote>> answer;
        service().rate("USD", "EUR", [&](std::optional<RateQuote> quote) { answer = quote; });
        answerFetch();
        scheduler.runUntilIdle();
        return answer;
    }

    void storeInDefaults(const std::string& json, Date fetchedAt) {
        defaults.set(RatesService::cacheKey, json);
        defaults.set(RatesService::fetchedAtKey, fetchedAt.seconds);
    }

    VirtualScheduler scheduler;
    FakeHttpClient http{scheduler};
    MemoryDefaultsStore defaults;
    MapEnvironment environment;

private:
    std::optional<RatesService> m_service;
};

TEST_F(RatesServiceTest, FetchesOnceAndStoresTheRawResponse) {
    const auto answer = askAnswered([&] {
        ASSERT_EQ(http.requests().size(), 1u);
        EXPECT_EQ(http.requests()[0].url, "https://api.frankfurter.app/latest?from=USD");
        http.reply(200, kResponse);
    });
    ASSERT_TRUE(answer && *answer);
    EXPECT_EQ(**answer, (RateQuote{0.9, "2025-01-03"}));
    EXPECT_EQ(defaults.string(RatesService::cacheKey), kResponse);
    EXPECT_DOUBLE_EQ(*defaults.real(RatesService::fetchedAtKey), scheduler.now().seconds);
}

TEST_F(RatesServiceTest, MemoryAnswersForTwelveHoursThenItFetchesAgain) {
    fetch();

    scheduler.advance(RatesService::ttl - 1);
    auto cached = ask("GBP", "EUR");
    ASSERT_TRUE(cached && *cached);
    EXPECT_DOUBLE_EQ((*cached)->rate, 0.9 / 0.8);
    EXPECT_EQ(http.requests().size(), 1u);

    scheduler.advance(1);
    EXPECT_FALSE(ask("USD", "EUR"));  // waits for the new fetch
    EXPECT_EQ(http.requests().size(), 2u);
}

TEST_F(RatesServiceTest, PersistsAcrossRestarts) {
    fetch();
    const Date fetchedAt = scheduler.now();
    scheduler.advance(600);

    restart();
    auto answer = ask("USD", "GBP");
    ASSERT_TRUE(answer && *answer);
    EXPECT_DOUBLE_EQ((*answer)->rate, 0.8);
    EXPECT_EQ(http.requests().size(), 1u);
    EXPECT_EQ(service().memo()->fetchedAt, fetchedAt) << "its age counts from the fetch, not the load";
}

TEST_F(RatesServiceTest, OldRatesStillAnswerWhenTheFetchFails) {
    storeInDefaults(kOlderResponse, scheduler.now() - 5 * RatesService::ttl);
    EXPECT_FALSE(ask("USD", "EUR"));
    ASSERT_EQ(http.requests().size(), 1u);
    http.fail("timed out", RatesService::requestTimeout);
    scheduler.advance(RatesService::requestTimeout);

    ASSERT_TRUE(service().memo());
    EXPECT_EQ(service().memo()->rate("USD", "EUR"), (RateQuote{0.95, "2024-12-01"}));
    EXPECT_EQ(defaults.string(RatesService::cacheKey), kOlderResponse);
}

TEST_F(RatesServiceTest, AfterTwelveHoursOfflineTheMemoStillAnswers) {
    fetch();
    defaults.remove(RatesService::cacheKey);  // even with nothing in the defaults

    scheduler.advance(RatesService::ttl + 60);
    const auto answer = askAnswered([&] { http.reply(503, "busy"); });
    ASSERT_TRUE(answer && *answer);
    EXPECT_DOUBLE_EQ((*answer)->rate, 0.9);
}

TEST_F(RatesServiceTest, ResponsesThatDontParseAreNotStored) {
    for (const char* body : {"not json", R"({"rates":{"EUR":1}})", R"({"date":"2025-01-03","rates":[]})"}) {
        const auto answer = askAnswered([&] { http.reply(200, body); });
        ASSERT_TRUE(answer) << body;
        EXPECT_FALSE(*answer) << body;
        EXPECT_FALSE(defaults.string(RatesService::cacheKey)) << body;
    }
}

TEST_F(RatesServiceTest, UnparsableStoredValueCountsAsMissing) {
    storeInDefaults("{truncated", scheduler.now() - 60);
    const auto answer = askAnswered([&] { http.fail("no route to host"); });
    ASSERT_TRUE(answer);
    EXPECT_FALSE(*answer) << "nothing anywhere gives no rate";
}

TEST(RatesTable, RateNeedsBothCodesAndAPositiveSourceButTheDollarIsAlwaysOne) {
    auto table = RatesTable::parse(R"({"date":"2025-01-03","rates":{"EUR":0,"GBP":0.8,"JPY":"x"}})", Date{});
    ASSERT_TRUE(table);
    EXPECT_FALSE(table->rate("EUR", "GBP"));  // source rate 0
    EXPECT_TRUE(table->rate("GBP", "EUR"));
    EXPECT_FALSE(table->rate("JPY", "USD"));  // not a number: left out
    EXPECT_FALSE(table->rate("CHF", "USD"));
    EXPECT_EQ(RatesTable{}.rate("USD", "USD"), (RateQuote{1, ""}));
}

TEST_F(RatesServiceTest, AReplyAfterTheServiceIsGoneIsIgnored) {
    (void)ask("USD", "EUR");
    restart();
    http.reply(200, kResponse);
    scheduler.runUntilIdle();
    EXPECT_FALSE(defaults.string(RatesService::cacheKey));
}

TEST(RatesTable, ShortDate) {
    EXPECT_EQ(RatesTable::shortDate("2025-01-03"), "1/3/25");
}

}  // namespace
}  // namespace vantrelle
