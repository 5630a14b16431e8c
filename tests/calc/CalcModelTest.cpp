#include <gtest/gtest.h>

#include "calc/CalcModel.h"
#include "calc/RatesService.h"
#include "fakes/FakeHttpClient.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::FakeHttpClient;

constexpr const char* kResponse = R"({"base":"USD","date":"2025-01-03","rates":{"EUR":0.9}})";

class CalcModelTest : public ::testing::Test {
protected:
    VirtualScheduler scheduler;
    FakeHttpClient http{scheduler};
    MemoryDefaultsStore defaults;
    MapEnvironment environment;
    RatesService rates{http, defaults, scheduler, environment};
};

TEST_F(CalcModelTest, EvaluatesAsYouTypeAndCarriesTheAnswer) {
    CalcModel model(rates, false);
    // An error stays in the input and enters nothing.
    model.setInput("ans + 1");
    EXPECT_EQ(model.liveResult()->display, "Unknown 'ans'");
    EXPECT_FALSE(model.commit());
    EXPECT_EQ(model.input(), "ans + 1");

    model.setInput("24*7");
    EXPECT_TRUE(model.commit());
    EXPECT_EQ(model.input(), "");
    EXPECT_FALSE(model.liveResult());
    EXPECT_EQ(model.entries(), (std::vector{CalcEntry{"24*7", "168", std::nullopt, 168}}));

    model.setInput("ans / 2");
    EXPECT_EQ(model.liveResult()->display, "84");
    model.commit();
    model.setInput("  ");
    EXPECT_FALSE(model.liveResult());
    EXPECT_FALSE(model.commit());  // nothing to enter
    model.setInput("ans + 1");
    EXPECT_EQ(model.liveResult()->display, "85");
}

TEST_F(CalcModelTest, CurrencyLinesWaitForRatesAndEnterWhenTheyCome) {
    CalcModel model(rates, false);
    model.setInput("$10 in eur");
    EXPECT_TRUE(model.isWaitingForRates());
    EXPECT_FALSE(model.liveResult());
    EXPECT_TRUE(model.commit());  // entered once the answer is known

    http.reply(200, kResponse);
    scheduler.runUntilIdle();
    EXPECT_FALSE(model.isWaitingForRates());
    ASSERT_EQ(model.entries().size(), 1u);
    EXPECT_EQ(model.entries()[0].result, "9 EUR");
}

TEST_F(CalcModelTest, AnAnswerForAnOlderInputIsDroppedAndNoRatesSaysSo) {
    CalcModel model(rates, false);
    model.setInput("10 usd in eur");
    model.setInput("1 + 1");
    http.reply(200, "not json");
    scheduler.runUntilIdle();
    EXPECT_EQ(model.liveResult()->display, "2");

    model.setInput("10 usd in eur");
    http.fail();
    scheduler.runUntilIdle();
    EXPECT_EQ(model.liveResult()->display, "Rates unavailable right now");
    EXPECT_FALSE(model.commit());
}

}  // namespace
}  // namespace vantrelle
