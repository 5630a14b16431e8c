#include "app/LiveBlockView.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/AIFormat.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

std::string padded(std::string text, std::size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
    return text;
}

std::string bar(double ratio, int width) {
    const int filled = static_cast<int>(std::lround(std::clamp(ratio, 0.0, 1.0) * width));
    return "[" + std::string(static_cast<std::size_t>(filled), '#') +
           std::string(static_cast<std::size_t>(width - filled), '.') + "]";
}

}  // namespace

std::string liveBlockScreen(const std::optional<StatusFigures>& figures, Date now, LiveBlockStyle style) {
    const auto paint = [&](const char* code, const std::string& text) {
        return style.colour ? std::string(code) + text + "\x1b[0m" : text;
    };
    std::string screen = paint("\x1b[1m", "Vantrelle: the current 5-hour window") + "\n\n";
    const bool open =
        figures && figures->block &&
        (now < figures->block->start + kBlockSeconds || now - figures->block->lastActivity < kBlockSeconds);
    if (!figures) {
        screen += "No figures yet: start Vantrelle, or wait for its first scan.\n";
    } else if (!open) {
        screen += "No window open: nothing used by Claude Code or Codex in the last 5 hours.\n";
    } else {
        const auto& block = *figures->block;
        const Date end = block.start + kBlockSeconds;
        const double ratio =
            block.budget > 0 ? static_cast<double>(block.tokens) / static_cast<double>(block.budget) : 0;
        const char* level = ratio >= 1.0 ? "\x1b[31m" : ratio >= 0.8 ? "\x1b[33m" : "\x1b[32m";
        const int barWidth = std::clamp(style.width - 30, 10, 50);
        screen += "  Window     " + LocalCalendar::timeOfDay(block.start) + " to " +
                  LocalCalendar::timeOfDay(end) + ", " + AIFormat::remaining(std::max(0.0, end - now)) +
                  " left\n";
        screen += "  Used       " + paint(level, bar(ratio, barWidth)) + " " +
                  std::to_string(static_cast<long long>(std::floor(ratio * 100))) + "% of " +
                  AIFormat::tokens(block.budget) + "\n";
        screen += "  Tokens     " + AIFormat::tokens(block.tokens) + "  " +
                  paint("\x1b[32m", AIFormat::cost(block.cost)) + "\n";
        screen += "  Projected  " + AIFormat::tokens(block.projectedTokens) + " by " +
                  LocalCalendar::timeOfDay(end) + " at this pace\n";
        const double burn = std::isfinite(block.burnTokensPerMinute) ? block.burnTokensPerMinute : 0;
        screen += "  Burn rate  " + AIFormat::tokens(static_cast<std::int64_t>(burn)) + " tokens a minute\n";
        if (!figures->models.empty()) {
            screen += "\n  By model\n";
            std::vector<std::pair<std::string, StatusAmount>> models(figures->models.begin(),
                                                                     figures->models.end());
            std::stable_sort(models.begin(), models.end(),
                             [](const auto& a, const auto& b) { return a.second.tokens > b.second.tokens; });
            const std::size_t nameWidth = static_cast<std::size_t>(std::clamp(style.width - 30, 12, 40));
            for (const auto& [name, amount] : models) {
                std::string shown = name.empty() ? "(unnamed)" : name;
                if (shown.size() > nameWidth) shown.resize(nameWidth);
                screen += "    " + padded(shown, nameWidth) + " " +
                          padded(AIFormat::tokens(amount.tokens), 8) + AIFormat::cost(amount.cost) + "\n";
            }
        }
    }
    if (figures) screen += "\nFigures of " + LocalCalendar::timeOfDay(figures->generatedAt) + ".";
    screen += paint("\x1b[2m", " Ctrl-C leaves.") + "\n";
    return screen;
}

}  // namespace vantrelle
