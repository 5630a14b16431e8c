#include "agents/ClaudeReplies.h"

#include <algorithm>
#include <limits>

namespace vantrelle {

namespace {

// A reply's final size shows in its line with the most output; among equals the earliest is taken,
// so a copy made later never moves the reply to another day.
bool better(const AIUsageEvent& line, const AIUsageEvent& best) {
    return line.output > best.output || (line.output == best.output && line.timestamp < best.timestamp);
}

void merge(AIUsageEvent& into, const AIUsageEvent& line) {
    const bool taken = better(line, into);
    into.input = std::max(into.input, line.input);
    into.cacheRead = std::max(into.cacheRead, line.cacheRead);
    into.cacheWrite = std::max(into.cacheWrite, line.cacheWrite);
    if (!taken) return;
    into.output = line.output;
    into.timestamp = line.timestamp;
    into.model = line.model;
}

}  // namespace

void ClaudeReplies::add(std::uint32_t file, ClaudeSighting&& sighting) {
    sighting.event.sessionId.clear();
    auto at = static_cast<std::uint32_t>(m_replies.size());
    if (sighting.key.empty()) {
        m_replies.push_back(Reply{});
    } else if (auto it = m_index.find(sighting.key); it != m_index.end()) {
        at = it->second;
    } else {
        m_replies.push_back(Reply{std::move(sighting.key), {}});
        m_index.emplace(m_replies.back().key, at);
    }
    Reply& reply = m_replies[at];
    for (Seen& seen : reply.seen) {
        if (seen.file == file) {
            merge(seen.best, sighting.event);
            return;
        }
    }
    reply.seen.push_back(Seen{file, std::move(sighting.event)});
    m_byFile[file].push_back(at);
}

void ClaudeReplies::dropFile(std::uint32_t file) {
    const auto it = m_byFile.find(file);
    if (it == m_byFile.end()) return;
    for (const std::uint32_t at : it->second) {
        Reply& reply = m_replies[at];
        std::erase_if(reply.seen, [file](const Seen& seen) { return seen.file == file; });
        if (!reply.seen.empty()) continue;
        if (!reply.key.empty()) m_index.erase(reply.key);
        reply = Reply{};
        ++m_dead;
    }
    m_byFile.erase(it);
    if (m_dead > 1024 && m_dead * 2 > m_replies.size()) compact();
}

AIUsageEvent ClaudeReplies::combined(const Reply& reply) {
    AIUsageEvent result = reply.seen.front().best;
    for (std::size_t i = 1; i < reply.seen.size(); ++i) merge(result, reply.seen[i].best);
    return result;
}

void ClaudeReplies::compact() {
    constexpr auto kGone = std::numeric_limits<std::uint32_t>::max();
    std::vector<std::uint32_t> moved(m_replies.size(), kGone);
    std::deque<Reply> kept;
    for (std::size_t i = 0; i < m_replies.size(); ++i) {
        if (m_replies[i].seen.empty()) continue;
        moved[i] = static_cast<std::uint32_t>(kept.size());
        kept.push_back(std::move(m_replies[i]));
    }
    m_replies = std::move(kept);
    // The keys moved with their replies, so the index is built again over the new places.
    m_index.clear();
    for (std::size_t i = 0; i < m_replies.size(); ++i) {
        if (!m_replies[i].key.empty()) m_index.emplace(m_replies[i].key, static_cast<std::uint32_t>(i));
    }
    for (auto& [file, positions] : m_byFile) {
        for (auto& at : positions) at = moved[at];
    }
    m_dead = 0;
}

}  // namespace vantrelle
