#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "app/UsageTables.h"
#include "support/AIFormat.h"
#include "support/Saturating.h"

namespace vantrelle {

namespace {

constexpr const char* kBold = "\x1b[1m";
constexpr const char* kDim = "\x1b[2m";
constexpr const char* kGreen = "\x1b[32m";
constexpr const char* kReset = "\x1b[0m";
constexpr std::size_t kLabelWidth = 22;  // with six figure columns, 77 columns in all

struct Heading {
    const char* label;
    const char* listKey;
    const char* rowKey;
};

Heading heading(UsageGrouping grouping) {
    switch (grouping) {
        case UsageGrouping::daily:
            return {"Date", "daily", "date"};
        case UsageGrouping::monthly:
            return {"Month", "monthly", "month"};
        case UsageGrouping::session:
            return {"Project", "sessions", "sessionId"};
        case UsageGrouping::blocks:
            return {"Window", "blocks", "start"};
    }
    return {"", "", ""};
}

std::size_t codePoints(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// Cut to `width` code points, the last an ellipsis when cut.
std::string fit(const std::string& text, std::size_t width) {
    if (codePoints(text) <= width) return text;
    std::size_t points = 0;
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        if ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) continue;
        if (points++ == width - 1) break;
    }
    return text.substr(0, end) + "…";
}

std::string line(const std::string& label, const UsageTotals& t) {
    const std::string shown = fit(label, kLabelWidth);
    return shown + std::string(kLabelWidth - std::min(kLabelWidth, codePoints(shown)), ' ') +
           fmt::format(" {:>8} {:>8} {:>8} {:>8} {:>8} {:>9}", AIFormat::tokens(t.input),
                       AIFormat::tokens(t.output), AIFormat::tokens(t.cacheWrite),
                       AIFormat::tokens(t.cacheRead), AIFormat::tokens(t.tokens()),
                       fmt::format("${:.2f}", t.cost));
}

nlohmann::json totalsJson(const UsageTotals& t) {
    return {{"input", t.input},           {"output", t.output},        {"cacheRead", t.cacheRead},
            {"cacheWrite", t.cacheWrite}, {"totalTokens", t.tokens()}, {"cost", t.cost},
            {"messages", t.messages}};
}

UsageTotals sum(const std::vector<UsageRow>& rows) {
    UsageTotals total;
    for (const auto& row : rows) {
        total.input = saturatingAdd(total.input, row.totals.input);
        total.output = saturatingAdd(total.output, row.totals.output);
        total.cacheRead = saturatingAdd(total.cacheRead, row.totals.cacheRead);
        total.cacheWrite = saturatingAdd(total.cacheWrite, row.totals.cacheWrite);
        total.cost += row.totals.cost;
        total.messages += row.totals.messages;
    }
    return total;
}

}  // namespace

std::string usageTableText(UsageGrouping grouping, const std::vector<UsageRow>& rows, UsageTableStyle style) {
    const auto paint = [&](const char* colour, const std::string& text) {
        return style.colour ? colour + text + kReset : text;
    };
    if (rows.empty()) return "No usage in this range.\n";
    std::string out =
        paint(kBold, fmt::format("{:<22} {:>8} {:>8} {:>8} {:>8} {:>8} {:>9}", heading(grouping).label,
                                 "Input", "Output", "Cache wr", "Cache rd", "Total", "Cost")) +
        "\n";
    for (const auto& row : rows) {
        const std::string text = line(row.label, row.totals);
        out += (row.live ? paint(kGreen, text) : text) + "\n";
        if (row.live) {
            out += paint(kGreen, fmt::format("  live: {} left, {} tokens projected",
                                             AIFormat::remaining(row.secondsLeft),
                                             AIFormat::tokens(row.projectedTokens))) +
                   "\n";
        }
        if (!style.breakdown) continue;
        for (const auto& [model, totals] : row.models) {
            out +=
                paint(kDim, line("  " + (model.empty() ? std::string("(unnamed)") : model), totals)) + "\n";
        }
    }
    out += paint(kBold, line("Total", sum(rows))) + "\n";
    return out;
}

std::string usageTableJson(UsageGrouping grouping, const std::vector<UsageRow>& rows, bool breakdown) {
    const Heading names = heading(grouping);
    nlohmann::json list = nlohmann::json::array();
    for (const auto& row : rows) {
        nlohmann::json item = totalsJson(row.totals);
        item[names.rowKey] = row.key;
        if (grouping == UsageGrouping::session) item["project"] = row.label;
        if (row.lastActivity) item["lastActivity"] = *row.lastActivity;
        if (grouping == UsageGrouping::blocks) {
            item["live"] = row.live;
            if (row.live) {
                item["projectedTokens"] = row.projectedTokens;
                item["secondsLeft"] = row.secondsLeft;
            }
        }
        if (breakdown) {
            item["models"] = nlohmann::json::array();
            for (const auto& [model, totals] : row.models) {
                nlohmann::json entry = totalsJson(totals);
                entry["model"] = model;
                item["models"].push_back(std::move(entry));
            }
        }
        list.push_back(std::move(item));
    }
    nlohmann::json root;
    root[names.listKey] = std::move(list);
    root["totals"] = totalsJson(sum(rows));
    // Names from the logs need not be UTF-8; such bytes become U+FFFD instead of failing.
    return root.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace vantrelle
