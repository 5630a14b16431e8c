#include <gtest/gtest.h>

#include "CalcGrammarRows.h"
#include "calc/CalcEngine.h"
#include "calc/ConversionQuery.h"

namespace vantrelle {

namespace {

RatesTable sampleRates() {
    return *RatesTable::parse(R"({"base":"USD","date":"2025-01-03","rates":{"EUR":0.9,"GBP":0.8,"JPY":150}})",
                              Date{1'800'000'000.0});
}

CalcResult eval(std::string_view text, const RatesTable* rates = nullptr) {
    return CalcEngine::evaluate(text, std::nullopt, rates);
}

TEST(ConversionQuery, SplitsAtTheLastConnectiveButNeverTheFirstWord) {
    const struct {
        const char* text;
        std::optional<ConversionQuery> query;
    } rows[] = {
        {"5 in in cm", ConversionQuery{"5 in", "cm"}},
        {"10 usd to us dollars", ConversionQuery{"10 usd", "us dollars"}},
        {"in 5 km", std::nullopt},
        {"5 km in", std::nullopt},
        {"20% of 150", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ConversionQuery::split(row.text), row.query);
    }
}

TEST(SplitAmount, SymbolAmountAndRest) {
    const struct {
        const char* text;
        std::optional<SplitAmount> split;
    } rows[] = {
        {"$1,200.50", SplitAmount{"$", 1200.5, ""}},
        {"5km", SplitAmount{"", 5, "km"}},
        {"-40 f", SplitAmount{"", -40, "f"}},
        {"2.5e3 m", SplitAmount{"", 2500, "m"}},
        {".5 km", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(SplitAmount::parse(row.text), row.split);
    }
}

TEST(UnitConversion, AnswerDetailAndSpellings) {
    EXPECT_EQ(eval("5 km in mi"), (CalcResult{"3.106856 mi", "5 km = 3.106856 mi · 1 km = 0.621371 mi",
                                              5000 / 1609.344, CalcResult::Kind::unit}));
    EXPECT_EQ(eval("1 mm in mi").detail, "1 mm = 6.21371e-7 mi · 1 mm = 6.21371e-7 mi");
    EXPECT_EQ(eval("100 c in f").detail, "100 c = 212 f");  // no factor for an affine scale
    // The factors are checked against GNU units (UnitsCrossCheckTest); these are the spellings reaching them.
    const std::pair<const char*, const char*> rows[] = {
        {"100 km in miles", "62.137119 miles"},
        {"1,500 g to kg", "1.5 kg"},
        {"10 m/s in km/h", "36 km/h"},
        {"1 m² in sqft", "10.76391 sqft"},
        {"12\" in cm", "30.48 cm"},
        {"3' in in", "36 in"},
        {"98.6 degf in degc", "37 degc"},
        // Not a conversion: the expression stage gets the line and explains it.
        {"5 parsec in km", "Unexpected 'parsec'"},
        {"5 km in parsec", "Unexpected 'km'"},
    };
    for (const auto& [text, display] : rows) EXPECT_EQ(eval(text).display, display) << text;
}

TEST(CurrencyQuery, RecognisedBeforeUnitsAndAnsweredFromTheTable) {
    EXPECT_EQ(CalcEngine::parseCurrency("£2,000 to us dollars"),
              (CalcEngine::CurrencyQuery{2000, "GBP", "USD"}));
    EXPECT_EQ(CalcEngine::parseCurrency("$5 usd in yen"), (CalcEngine::CurrencyQuery{5, "USD", "JPY"}));
    EXPECT_FALSE(CalcEngine::parseCurrency("10 in eur"));   // no source currency
    EXPECT_FALSE(CalcEngine::parseCurrency("usd in eur"));  // no amount

    const RatesTable rates = sampleRates();
    EXPECT_EQ(eval("10 pounds in euro", &rates),
              (CalcResult{"11.25 EUR", "1 GBP = 1.125 EUR · 1/3/25", 11.25, CalcResult::Kind::currency}));
    EXPECT_EQ(eval("10 pounds in kg", &rates).kind, CalcResult::Kind::unit);
    EXPECT_EQ(eval("$10 in eur", &rates).display, "9 EUR");
    EXPECT_EQ(eval("1,000 yen in us dollars", &rates).display, "6.67 USD");
    // Known codes the table doesn't carry, and no table at all.
    EXPECT_EQ(eval("10 usd in chf", &rates).kind, CalcResult::Kind::error);
    EXPECT_EQ(eval("10 usd in eur").display, "Rates unavailable right now");
}

TEST(PercentPhrase, TheThreeSentences) {
    using Kind = CalcResult::Kind;
    const struct {
        const char* text;
        CalcResult result;
    } rows[] = {
        {"20% of 50", {"10", "20% of 50", 10, Kind::percent}},
        {"10+10% of 2*25", {"10", "10+10% of 2*25", 10, Kind::percent}},  // each side is an expression
        {"15 is what % of 60", {"25%", "15 of 60", 25, Kind::percent}},
        {"20% off 50", {"40", "50 with 20% off · saves 10", 40, Kind::percent}},
        {"ans% of 200", {"Unknown 'ans'", std::nullopt, std::nullopt, Kind::error}},
        {"5 is what % of 0", {"Division by zero", std::nullopt, std::nullopt, Kind::error}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(eval(row.text), row.result);
    }
    EXPECT_EQ(CalcEngine::evaluate("ans% of 200", 10, nullptr).display, "20");
}

}  // namespace
}  // namespace vantrelle
