#include "agents/ClaudeCodeLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "agents/Fatal.h"
#include "agents/LogLineParser.h"
#include "agents/LogLocator.h"

namespace vantrelle {

namespace {

constexpr std::size_t kMaxCarry = 1'000'001;  // an unfinished line this long is dropped
constexpr std::size_t kReadBlock = 1 << 20;

Date modificationDate(const struct stat& info) {
    return Date{static_cast<double>(info.st_mtim.tv_sec) + static_cast<double>(info.st_mtim.tv_nsec) / 1e9};
}

// Closes a descriptor at the end of a scope.
struct FileDescriptor {
    int fd = -1;
    explicit FileDescriptor(int value) : fd(value) {}
    ~FileDescriptor() {
        if (fd >= 0) ::close(fd);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
};

}  // namespace

ClaudeCodeLog::ClaudeCodeLog(const Environment& environment, std::filesystem::path userHome, const Clock& clock)
    : m_home(resolveHome(environment, userHome)), m_clock(clock), m_parser(std::make_unique<LogLineParser>(*this)) {}

ClaudeCodeLog::~ClaudeCodeLog() = default;

std::filesystem::path ClaudeCodeLog::resolveHome(const Environment& environment,
                                                 const std::filesystem::path& userHome) {
    if (auto value = environment.get("VANTRELLE_AI_HOME")) return std::filesystem::path(*value);
    return userHome;
}

AILogSnapshot ClaudeCodeLog::scan() {
    const Date now = m_clock.now();
    const Date cutoff = now - window;
    ++m_generation;

    for (const auto& candidate : candidateLogFiles(m_home, cutoff)) read(candidate.path, candidate.tool);

    // A log that no longer qualifies, by age or removal, takes its session and events with it.
    std::vector<std::string> gone;
    for (const auto& [path, state] : m_files) {
        if (state.scanGeneration != m_generation) gone.push_back(path);
    }
    for (const auto& path : gone) forget(path);

    const auto before = m_events.size();
    std::erase_if(m_events, [cutoff](const AIUsageEvent& event) { return event.timestamp < cutoff; });
    if (m_events.size() != before) m_changed = true;
    // Gemini events only age; the published ones need a new list once the oldest falls out.
    if (m_oldestPublishedGemini && *m_oldestPublishedGemini < cutoff) m_changed = true;

    AILogSnapshot snapshot;
    snapshot.scannedAt = now;
    if (!m_changed && m_publishedEvents && m_publishedSessions) {
        // PERF NOTE: an unchanged scan hands out the lists of the last one; no event is copied.
        snapshot.eventList = m_publishedEvents;
        snapshot.sessionMap = m_publishedSessions;
        return snapshot;
    }
    auto events = std::make_shared<AILogSnapshot::Events>();
    events->reserve(m_events.size());
    events->insert(events->end(), m_events.begin(), m_events.end());
    m_oldestPublishedGemini.reset();
    for (const auto& [path, state] : m_files) {
        for (const auto& [id, event] : state.geminiEvents) {
            if (event.timestamp < cutoff) continue;
            events->push_back(event);
            if (!m_oldestPublishedGemini || event.timestamp < *m_oldestPublishedGemini) {
                m_oldestPublishedGemini = event.timestamp;
            }
        }
    }
    m_publishedEvents = std::move(events);
    m_publishedSessions = std::make_shared<const AILogSnapshot::Sessions>(m_sessions);
    m_changed = false;
    snapshot.eventList = m_publishedEvents;
    snapshot.sessionMap = m_publishedSessions;
    return snapshot;
}

void ClaudeCodeLog::forget(const std::string& path) {
    auto it = m_files.find(path);
    if (it == m_files.end()) return;
    const std::string sessionId = it->second.sessionId;
    m_files.erase(it);
    std::erase_if(m_events, [&](const AIUsageEvent& event) { return event.sessionId == sessionId; });
    m_sessions.erase(sessionId);
    m_changed = true;
}

void ClaudeCodeLog::read(const std::filesystem::path& url, AgentTool tool) {
    std::string path = url.string();
    std::string sessionId = url.stem().string();

    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        // Unreadable attributes skip the file this scan, keeping its state.
        if (auto it = m_files.find(path); it != m_files.end()) it->second.scanGeneration = m_generation;
        return;
    }
    const auto size = static_cast<std::uint64_t>(info.st_size);
    const Date modified = modificationDate(info);

    auto stateIt = m_files.find(path);
    if (stateIt == m_files.end()) {
        stateIt = m_files.emplace(path, FileState{}).first;
        stateIt->second.sessionId = sessionId;
        m_changed = true;
    } else if (size < stateIt->second.offset) {
        // Truncated or replaced: start over from its first byte.
        const std::string keptId = stateIt->second.sessionId;
        forget(path);
        stateIt = m_files.emplace(path, FileState{}).first;
        stateIt->second.sessionId = keptId;
    }
    FileState& state = stateIt->second;
    state.scanGeneration = m_generation;

    auto metaIt = m_sessions.find(state.sessionId);
    if (metaIt == m_sessions.end()) {
        AISessionMeta fresh;
        fresh.sessionId = state.sessionId;
        fresh.tool = tool;
        fresh.fileURL = url;
        metaIt = m_sessions.emplace(state.sessionId, std::move(fresh)).first;
        m_changed = true;
    }
    AISessionMeta& meta = metaIt->second;
    if (meta.fileModified != modified || meta.fileURL != url) {
        meta.fileModified = modified;
        meta.fileURL = url;
        m_changed = true;
    }

    if (tool == AgentTool::gemini) {
        if (meta.cwd.empty()) {
            meta.cwd = geminiProjectRoot(url);
            m_changed = true;
        }
        if (url.extension() == ".json") {
            readWholeJson(path, state, meta, size, modified);
            return;
        }
    }
    readLines(path, state, meta, tool, size);
}

void ClaudeCodeLog::readLines(const std::string& path, FileState& state, AISessionMeta& meta, AgentTool tool,
                              std::uint64_t size) {
    if (state.offset >= size) return;
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.fd < 0) return;
    m_changed = true;
    // A failed seek leaves the read at the handle's position, its start.
    ::lseek(file.fd, static_cast<off_t>(state.offset), SEEK_SET);

    // PERF NOTE: one buffer for the whole scan: the carry, then the appended bytes read in large
    // blocks straight behind it, then the parser's padding. No line is copied.
    const std::size_t padding = LogLineParser::padding();
    const std::size_t carryLength = state.carry.size();
    const std::size_t expected = static_cast<std::size_t>(size - state.offset);
    if (m_buffer.size() < carryLength + expected + padding) m_buffer.resize(carryLength + expected + padding);
    std::memcpy(m_buffer.data(), state.carry.data(), carryLength);
    std::size_t filled = carryLength;
    while (true) {
        if (m_buffer.size() < filled + kReadBlock + padding) m_buffer.resize(filled + kReadBlock + padding);
        const ssize_t got = ::read(file.fd, m_buffer.data() + filled, m_buffer.size() - padding - filled);
        if (got < 0) {
            if (errno == EINTR) continue;
            break;
        }
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    std::memset(m_buffer.data() + filled, ' ', padding);
    const std::size_t chunkLength = filled - carryLength;

    const char* data = m_buffer.data();
    std::size_t lineStart = 0;
    while (lineStart < filled) {
        const void* found = std::memchr(data + lineStart, '\n', filled - lineStart);
        if (found == nullptr) break;
        const auto lineEnd = static_cast<std::size_t>(static_cast<const char*>(found) - data);
        if (lineEnd > lineStart) {
            m_parser->line(data + lineStart, lineEnd - lineStart, m_buffer.size() - lineStart, tool, state, meta);
        }
        lineStart = lineEnd + 1;
    }

    state.carry.assign(data + lineStart, filled - lineStart);
    // The unfinished tail stays in the carry and also in front of the offset, so a line finished later
    // is read twice over and dropped as unparsable. A carry longer than the chunk can't be subtracted.
    if (state.carry.size() > chunkLength) agentsFatal("aiusage: unfinished line longer than the bytes read");
    state.offset = std::min<std::uint64_t>(size, state.offset + (chunkLength - state.carry.size()));
    if (state.carry.size() >= kMaxCarry) {
        state.carry.clear();
        state.carry.shrink_to_fit();
    }
}

void ClaudeCodeLog::readWholeJson(const std::string& path, FileState& state, AISessionMeta& meta,
                                  std::uint64_t size, Date modified) {
    if (state.jsonModified == modified) return;
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.fd < 0) return;
    const std::size_t padding = LogLineParser::padding();
    std::size_t filled = 0;
    while (true) {
        if (m_buffer.size() < filled + kReadBlock + padding) m_buffer.resize(filled + kReadBlock + padding);
        const ssize_t got = ::read(file.fd, m_buffer.data() + filled, m_buffer.size() - padding - filled);
        if (got < 0) {
            if (errno == EINTR) continue;
            return;
        }
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    std::memset(m_buffer.data() + filled, ' ', padding);

    // A rewrite starts over: the file holds the whole session each time.
    FileState fresh;
    fresh.sessionId = state.sessionId;
    fresh.scanGeneration = state.scanGeneration;
    AISessionMeta freshMeta;
    freshMeta.sessionId = meta.sessionId;
    freshMeta.tool = meta.tool;
    freshMeta.fileURL = meta.fileURL;
    freshMeta.cwd = meta.cwd;
    freshMeta.fileModified = modified;
    if (!m_parser->geminiDocument(m_buffer.data(), filled, m_buffer.size(), fresh, freshMeta)) return;
    fresh.jsonModified = modified;
    fresh.offset = size;
    state = std::move(fresh);
    meta = std::move(freshMeta);
    m_changed = true;
}

}  // namespace vantrelle
