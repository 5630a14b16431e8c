#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "agents/AIUsageEvent.h"
#include "agents/LogLineSink.h"

namespace vantrelle {

// Every Claude Code reply across all the logs followed, one per key (message id and request id):
// however many lines and files carry a reply, it is one event at its final size (ReplyFigures).
// Figures are kept per file, so a file that goes takes only its own lines with it.
class ClaudeReplies {
public:
    struct Seen {
        std::uint32_t file = 0;
        ReplyFigures figures;  // of this file's lines; the model indexes this registry's names
    };
    struct Reply {
        std::string key;  // empty: a line without request id or uuid, a reply of its own
        std::vector<Seen> seen;
    };

    // Takes a reply's lines found in `file`.
    void add(std::uint32_t file, std::string key, ReplyFigures figures, std::string_view model);
    // Forgets every line that `file` held; replies no other file holds go.
    void dropFile(std::uint32_t file);

    // The replies in order of arrival, each with at least one file.
    template <typename Visit>
    void forEach(Visit&& visit) const {
        for (const Reply& reply : m_replies) {
            if (!reply.seen.empty()) visit(reply);
        }
    }
    // A reply's event over all its files; the session is left for the caller to choose.
    [[nodiscard]] AIUsageEvent event(const Reply& reply) const;

    [[nodiscard]] std::size_t size() const { return m_replies.size() - m_dead; }

private:
    void compact();

    // PERF NOTE: a deque keeps each reply (and the key the index views) in place as replies arrive.
    std::deque<Reply> m_replies;
    std::unordered_map<std::string_view, std::uint32_t> m_index;  // key -> position in m_replies
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> m_byFile;
    std::vector<std::string> m_models;  // model names, each kept once
    std::unordered_map<std::string, std::uint32_t> m_modelIndex;
    std::size_t m_dead = 0;  // replies left without files, removed by the next compaction
};

}  // namespace vantrelle
