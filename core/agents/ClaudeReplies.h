#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "agents/LogLineSink.h"

namespace vantrelle {

// Every Claude Code reply across all the logs followed, one per key (message id and request id).
// Claude Code writes a streamed reply as several lines under one key, the first with partial output,
// and a resumed session copies earlier replies into its new log. So a reply is one event however many
// lines and files carry it: each token figure is the largest on any of its lines, and its date and
// model are those of its line with the most output (the earliest among equals). Lines are kept per
// file, so a file that goes takes only its own lines with it.
class ClaudeReplies {
public:
    // A file's best line of a reply: the largest of each figure, the date and model of the most output.
    struct Seen {
        std::uint32_t file = 0;
        AIUsageEvent best;  // sessionId is left empty: the owner is chosen when events are made
    };
    struct Reply {
        std::string key;  // empty: a line without request id or uuid, a reply of its own
        std::vector<Seen> seen;
    };

    // Takes one line of a reply found in `file`.
    void add(std::uint32_t file, ClaudeSighting&& sighting);
    // Forgets every line that `file` held; replies no other file holds go.
    void dropFile(std::uint32_t file);

    // The replies in order of arrival, each with at least one file.
    template <typename Visit>
    void forEach(Visit&& visit) const {
        for (const Reply& reply : m_replies) {
            if (!reply.seen.empty()) visit(reply);
        }
    }
    // A reply's figures over all its files.
    [[nodiscard]] static AIUsageEvent combined(const Reply& reply);

    [[nodiscard]] std::size_t size() const { return m_replies.size() - m_dead; }

private:
    void compact();

    // PERF NOTE: a deque keeps each reply (and the key the index views) in place as replies arrive.
    std::deque<Reply> m_replies;
    std::unordered_map<std::string_view, std::uint32_t> m_index;  // key -> position in m_replies
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> m_byFile;
    std::size_t m_dead = 0;  // replies left without files, removed by the next compaction
};

}  // namespace vantrelle
