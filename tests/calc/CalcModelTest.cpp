#include <gtest/gtest.h>

#include "calc/CalcDemo.h"
#include "calc/CalcEngine.h"
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

TEST_F(CalcModelTest, DemoHistoryIsWhatTheEngineAnswers) {
    CalcModel model(rates, true);
    ASSERT_FALSE(model.entries().empty());
    for (const auto& entry : model.entries()) {
        const CalcResult result = CalcEngine::evaluate(entry.expression, std::nullopt, nullptr);
        EXPECT_EQ(entry, (CalcEntry{entry.expression, result.display, result.detail, result.value}));
    }
    EXPECT_EQ(model.previousAnswer(), model.entries().back().value);
    EXPECT_TRUE(CalcModel(rates, false).entries().empty());
}

TEST_F(CalcModelTest, EvaluatesAsYouTypeAndCarriesTheAnswer) {
    CalcModel model(rates, false);
    int changes = 0;
    auto connection = model.changed.connect([&] { ++changes; });

    model.setInput("24*");
    ASSERT_TRUE(model.liveResult());
    EXPECT_TRUE(model.liveResult()->isError());
    model.setInput("24*7");
    EXPECT_EQ(model.liveResult()->display, "168");
    EXPECT_GE(changes, 2);

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

TEST_F(CalcModelTest, ErrorsStayInTheInput) {
    CalcModel model(rates, false);
    model.setInput("ans + 1");
    EXPECT_EQ(model.liveResult()->display, "Unknown 'ans'");
    EXPECT_FALSE(model.commit());
    EXPECT_EQ(model.input(), "ans + 1");
    EXPECT_TRUE(model.entries().empty());
}

TEST_F(CalcModelTest, CurrencyLinesWaitForRatesAndEnterWhenTheyCome) {
    CalcModel model(rates, false);
    model.setInput("$10 in eur");
    EXPECT_TRUE(model.isWaitingForRates());
    EXPECT_FALSE(model.liveResult());
    EXPECT_TRUE(model.commit());  // entered once the answer is known
    EXPECT_TRUE(model.entries().empty());

    http.reply(200, kResponse);
    scheduler.runUntilIdle();
    EXPECT_FALSE(model.isWaitingForRates());
    ASSERT_EQ(model.entries().size(), 1u);
    EXPECT_EQ(model.entries()[0].result, "9 EUR");
    EXPECT_EQ(model.input(), "");

    // With the table in memory a currency line answers at once.
    model.setInput("€9 in usd");
    EXPECT_EQ(model.liveResult()->display, "10 USD");
}

TEST_F(CalcModelTest, AnAnswerForAnOlderInputIsDropped) {
    CalcModel model(rates, false);
    model.setInput("10 usd in eur");
    model.setInput("1 + 1");
    EXPECT_EQ(model.liveResult()->display, "2");
    http.reply(200, kResponse);
    scheduler.runUntilIdle();
    EXPECT_EQ(model.liveResult()->display, "2");
}

TEST_F(CalcModelTest, NoRatesSaysSo) {
    CalcModel model(rates, false);
    model.setInput("10 usd in eur");
    http.fail();
    scheduler.runUntilIdle();
    EXPECT_EQ(model.liveResult()->display, "Rates unavailable right now");
    EXPECT_FALSE(model.commit());
}

TEST_F(CalcModelTest, HistoryIsCappedAndCanBeClearedAndRecalled) {
    CalcModel model(rates, false);
    for (std::size_t i = 0; i < CalcModel::maxEntries + 5; ++i) {
        model.setInput(std::to_string(i) + " + 0");
        ASSERT_TRUE(model.commit());
    }
    EXPECT_EQ(model.entries().size(), CalcModel::maxEntries);
    EXPECT_EQ(model.entries().front().expression, "5 + 0");
    EXPECT_EQ(model.previousAnswer(), static_cast<double>(CalcModel::maxEntries + 4));

    model.recall(0);
    EXPECT_EQ(model.input(), "5 + 0");
    EXPECT_EQ(model.liveResult()->display, "5");

    model.setInput("ans");
    model.clearHistory();
    EXPECT_TRUE(model.entries().empty());
    EXPECT_EQ(model.liveResult()->display, "Unknown 'ans'");
}

TEST_F(CalcModelTest, ModelGoneBeforeTheRatesCome) {
    {
        CalcModel model(rates, false);
        model.setInput("10 usd in eur");
    }
    http.reply(200, kResponse);
    scheduler.runUntilIdle();
    EXPECT_TRUE(rates.memo());
}

}  // namespace
}  // namespace vantrelle
