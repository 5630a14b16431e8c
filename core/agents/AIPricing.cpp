#include "agents/AIPricing.h"

#include <array>
#include <string>

#include "support/Saturating.h"

namespace vantrelle {

namespace {

struct Row {
    std::string_view needle;
    std::string_view family;
    AIPricing rates;
};

constexpr AIPricing::LongContext kGeminiProLong{2.5, 15, 0.25};

// Rows are searched in this order: the needles overlap, so the order is part of the data.
const std::array<Row, 25>& rows() {
    static const std::array<Row, 25> table{{
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
    return table;
}

const AIPricing kFallback{3, 15, 0.3, 3.75, std::nullopt};

const Row* find(std::string_view model) {
    std::string lower(model);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    for (const auto& row : rows()) {
        if (lower.find(row.needle) != std::string::npos) return &row;
    }
    return nullptr;
}

}  // namespace

AIPricing AIPricing::rates(std::string_view model) {
    const Row* row = find(model);
    return row ? row->rates : kFallback;
}

std::string_view AIPricing::family(std::string_view model) {
    const Row* row = find(model);
    return row ? row->family : std::string_view("Model");
}

double AIPricing::cost(const AIUsageEvent& event) {
    return rates(event.model).costOf(event);
}

double AIPricing::costOf(const AIUsageEvent& event) const {
    const AIPricing& r = *this;
    const auto in = static_cast<double>(event.input);
    const auto out = static_cast<double>(event.output);
    const auto read = static_cast<double>(event.cacheRead);
    const auto write = static_cast<double>(event.cacheWrite);
    if (r.longContext && saturatingAdd(event.input, event.cacheRead) > 200'000) {
        const auto& l = *r.longContext;
        return (l.input * in + l.output * out + l.cacheRead * read + r.cacheWrite * write) / 1'000'000;
    }
    return (r.input * in + r.output * out + r.cacheRead * read + r.cacheWrite * write) / 1'000'000;
}

}  // namespace vantrelle
