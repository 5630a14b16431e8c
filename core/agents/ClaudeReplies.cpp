#include "agents/ClaudeReplies.h"

#include <algorithm>
#include <limits>

namespace vantrelle {

void ClaudeReplies::add(std::uint32_t file, std::string key, ReplyFigures figures, std::string_view model) {
    const auto [known, fresh] =
        m_modelIndex.try_emplace(std::string(model), static_cast<std::uint32_t>(m_models.size()));
    if (fresh) m_models.emplace_back(model);
    figures.model = known->second;

    auto at = static_cast<std::uint32_t>(m_replies.size());
    if (key.empty()) {
        m_replies.push_back(Reply{});
    } else if (auto it = m_index.find(key); it != m_index.end()) {
        at = it->second;
    } else {
        m_replies.push_back(Reply{std::move(key), {}});
        m_index.emplace(m_replies.back().key, at);
    }
    Reply& reply = m_replies[at];
    for (Seen& seen : reply.seen) {
        if (seen.file == file) {
            seen.figures.merge(figures);
            return;
        }
    }
    reply.seen.push_back(Seen{file, figures});
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

AIUsageEvent ClaudeReplies::event(const Reply& reply) const {
    ReplyFigures figures = reply.seen.front().figures;
    for (std::size_t i = 1; i < reply.seen.size(); ++i) figures.merge(reply.seen[i].figures);
    AIUsageEvent event;
    event.timestamp = figures.time;
    event.tool = AgentTool::claudeCode;
    event.model = m_models[figures.model];
    event.input = figures.input;
    event.output = figures.output;
    event.cacheRead = figures.cacheRead;
    event.cacheWrite = figures.cacheWrite;
    return event;
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
    // The names only gone replies used go too.
    std::vector<std::string> models;
    m_modelIndex.clear();
    for (auto& reply : m_replies) {
        for (auto& seen : reply.seen) {
            const std::string& name = m_models[seen.figures.model];
            const auto [it, fresh] =
                m_modelIndex.try_emplace(name, static_cast<std::uint32_t>(models.size()));
            if (fresh) models.push_back(name);
            seen.figures.model = it->second;
        }
    }
    m_models = std::move(models);
    m_dead = 0;
}

}  // namespace vantrelle
