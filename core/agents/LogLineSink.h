#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "agents/AIUsageEvent.h"
#include "agents/LogProblems.h"
#include "platform/Date.h"

namespace vantrelle {

// A Claude Code reply's figures as far as its lines have shown them. Claude Code writes a streamed
// reply as several lines under one key, the first with partial output, and a resumed session copies
// earlier replies into its own log; so each figure is the largest seen, and the date and model are
// those of the line with the most output, the earliest among equals (a later copy never moves a
// reply to another day).
struct ReplyFigures {
    Date time;
    std::int64_t input = 0, output = 0, cacheRead = 0, cacheWrite = 0;
    std::uint32_t model = 0;  // an index into the model names of whoever keeps the figures

    void merge(const ReplyFigures& line) {
        const bool best = line.output > output || (line.output == output && line.time < time);
        input = std::max(input, line.input);
        cacheRead = std::max(cacheRead, line.cacheRead);
        cacheWrite = std::max(cacheWrite, line.cacheWrite);
        if (!best) return;
        output = line.output;
        time = line.time;
        model = line.model;
    }
};

// One reply met in one read of one file: its lines so far, merged.
struct ClaudeSighting {
    std::string key;  // message id "|" request id (or uuid); empty when the line has neither
    ReplyFigures figures;
};

// What reading one file produced, apart from its own state and session record: files can so be read
// on several threads and their results merged in file order (see ClaudeReplies for the replies).
struct LineSink {
    std::vector<AIUsageEvent> events;  // Codex replies
    std::vector<ClaudeSighting> claudeReplies;
    std::vector<std::string> models;  // the names the replies' model indexes point to
    LogProblems problems;

    // PERF NOTE: the lines of a streamed reply follow each other, so they are merged here at once and
    // a cold scan holds one record per reply, not one per line.
    void addClaude(std::string key, ReplyFigures line, std::string_view model) {
        line.model = modelIndex(model);
        if (!key.empty() && !claudeReplies.empty() && claudeReplies.back().key == key) {
            claudeReplies.back().figures.merge(line);
            return;
        }
        claudeReplies.push_back(ClaudeSighting{std::move(key), line});
    }

private:
    std::uint32_t modelIndex(std::string_view model) {
        const auto [it, fresh] =
            m_modelIndex.try_emplace(std::string(model), static_cast<std::uint32_t>(models.size()));
        if (fresh) models.emplace_back(model);
        return it->second;
    }

    std::unordered_map<std::string, std::uint32_t> m_modelIndex;
};

}  // namespace vantrelle
