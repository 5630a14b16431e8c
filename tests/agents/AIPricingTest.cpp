#include <gtest/gtest.h>

#include <array>
#include <string>

#include "agents/AIPricing.h"

namespace vantrelle {

namespace {

struct PriceRow {
    const char* needle;
    const char* family;
    AIPricing rates;
};

constexpr AIPricing::LongContext kGeminiProLong{2.5, 15, 0.25};

// The published price list, US dollars per million tokens, in the order it is searched.
const std::array<PriceRow, 25> kPriceList{{
    {"fable", "Fable", {10, 50, 0.25, 12.5, std::nullopt}},
    {"mythos", "Fable", {10, 50, 0.25, 12.5, std::nullopt}},
    {"opus-5", "Opus", {5, 25, 0.5, 6.25, std::nullopt}},
    {"opus-4-8", "Opus", {5, 25, 0.5, 6.25, std::nullopt}},
    {"opus-4-7", "Opus", {5, 25, 0.5, 6.25, std::nullopt}},
    {"opus-4-6", "Opus", {5, 25, 0.5, 6.25, std::nullopt}},
    {"opus", "Opus", {15, 75, 1.5, 18.75, std::nullopt}},
    {"sonnet-5", "Sonnet", {2, 10, 0.2, 2.5, std::nullopt}},
    {"sonnet", "Sonnet", {3, 15, 0.3, 3.75, std::nullopt}},
    {"haiku-4-5", "Haiku", {1, 5, 0.1, 1.25, std::nullopt}},
    {"haiku", "Haiku", {0.8, 4, 0.08, 1, std::nullopt}},
    {"gemini-3.1-flash-lite", "Gemini", {0.25, 1.5, 0.025, 0, std::nullopt}},
    {"gemini-3.5-flash-lite", "Gemini", {0.3, 2.5, 0.03, 0, std::nullopt}},
    {"gemini-2.5-flash-lite", "Gemini", {0.1, 0.4, 0.01, 0, std::nullopt}},
    {"gemini-3.6-flash", "Gemini", {0.75, 3.75, 0.075, 0, std::nullopt}},
    {"gemini-3.7-flash", "Gemini", {0.75, 3.75, 0.075, 0, std::nullopt}},
    {"gemini-3.8-flash", "Gemini", {0.75, 3.75, 0.075, 0, std::nullopt}},
    {"gemini-3.5-flash", "Gemini", {1.5, 9, 0.15, 0, std::nullopt}},
    {"gemini-3-flash", "Gemini", {0.5, 3, 0.05, 0, std::nullopt}},
    {"gemini-2.5-flash", "Gemini", {0.3, 2.5, 0.03, 0, std::nullopt}},
    {"gemini-3.1-pro", "Gemini", {2, 12, 0.2, 0, AIPricing::LongContext{4, 18, 0.4}}},
    {"gemini-2.5-pro", "Gemini", {1.25, 10, 0.125, 0, kGeminiProLong}},
    {"gemini", "Gemini", {1.25, 10, 0.125, 0, kGeminiProLong}},
    {"gpt", "GPT", {0, 0, 0, 0, std::nullopt}},
    {"codex", "GPT", {0, 0, 0, 0, std::nullopt}},
}};

const AIPricing kFallback{3, 15, 0.3, 3.75, std::nullopt};

TEST(AIPricing, EachRowsNeedleAnywhereInAModelNameFindsIt) {
    for (const PriceRow& row : kPriceList) {
        for (const std::string& model :
             {std::string(row.needle), "models/" + std::string(row.needle) + "-latest"}) {
            SCOPED_TRACE(model);
            EXPECT_EQ(AIPricing::rates(model), row.rates);
            EXPECT_EQ(AIPricing::family(model), row.family);
        }
    }
}

// Model names that hold more than one needle, or none: the first row in the list wins.
TEST(AIPricing, TheFirstMatchingRowDecides) {
    const std::pair<const char*, int> lookups[] = {
        // The row is 1-based in the price list; 0 is the fallback.
        {"claude-fable-opus-5", 1},  // "fable" before any "opus"
        {"claude-opus-5", 3},        // "opus-5" before "opus"
        {"claude-opus-4-1", 7},      // an older Opus falls to "opus"
        {"Claude-Sonnet-5", 8},      // case is ignored
        {"claude-sonnet-4-5", 9},    // "sonnet-4-5" holds no "sonnet-5"
        {"gemini-2.0-flash", 23},    // a Gemini the list doesn't name
        {"gpt-5-codex", 24},         // "gpt" before "codex"
        {"mystery", 0},              // no needle: the fallback
        {"", 0},
        {"op us", 0},  // needles match as they stand
    };
    for (const auto& [model, row] : lookups) {
        SCOPED_TRACE(model);
        EXPECT_EQ(AIPricing::rates(model), row == 0 ? kFallback : kPriceList.at(row - 1).rates);
        EXPECT_EQ(AIPricing::family(model), row == 0 ? "Model" : kPriceList.at(row - 1).family);
    }
}

TEST(AIPricingCost, EachEventAloneCrossesTheLongContextLine) {
    AIUsageEvent event;
    event.model = "gemini-2.5-pro";
    event.input = 150'000;
    event.cacheRead = 50'000;  // exactly 200,000 stays at the normal price
    event.output = 1'000'000;
    EXPECT_DOUBLE_EQ(AIPricing::cost(event), (1.25 * 150'000 + 10 * 1'000'000 + 0.125 * 50'000) / 1e6);
    event.cacheRead = 50'001;
    EXPECT_DOUBLE_EQ(AIPricing::cost(event), (2.5 * 150'000 + 15 * 1'000'000 + 0.25 * 50'001) / 1e6);

    event.model = "gemini-3.1-pro";
    EXPECT_DOUBLE_EQ(AIPricing::cost(event), (4 * 150'000 + 18 * 1'000'000 + 0.4 * 50'001) / 1e6);

    // Without long-context prices a big call costs the same per token; cache writes count too.
    event.model = "claude-sonnet-4-5";
    event.cacheWrite = 1'000'000;
    EXPECT_DOUBLE_EQ(AIPricing::cost(event),
                     (3 * 150'000 + 15 * 1'000'000 + 0.3 * 50'001 + 3.75 * 1e6) / 1e6);
}

}  // namespace
}  // namespace vantrelle
