#include "agents/ClaudeCodeLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <thread>

#include "agents/Fatal.h"
#include "agents/LogLineParser.h"
#include "agents/LogLocator.h"

namespace vantrelle {

namespace {

constexpr std::size_t kMaxCarry = 1'000'001;  // an unfinished line this long is dropped
constexpr std::size_t kReadBlock = 1 << 20;
constexpr std::size_t kStreamBlock = 1u << 20;       // read block; small enough to stay in cache
constexpr std::uint64_t kParallelBytes = 16u << 20;  // below this one thread is quicker

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

namespace {

// A byte buffer that grows without zero-filling and keeps its size between reads.
class ReadBuffer {
public:
    [[nodiscard]] char* data() { return m_data.get(); }
    [[nodiscard]] std::size_t size() const { return m_capacity; }
    // Room for `needed` bytes, keeping the first `keep` of them.
    void reserve(std::size_t needed, std::size_t keep) {
        if (needed <= m_capacity) return;
        const std::size_t capacity = std::max(needed, m_capacity + m_capacity / 2);
        std::unique_ptr<char[]> grown(new char[capacity]);
        if (keep > 0) std::memcpy(grown.get(), m_data.get(), keep);
        m_data = std::move(grown);
        m_capacity = capacity;
    }

private:
    std::unique_ptr<char[]> m_data;
    std::size_t m_capacity = 0;
};

// Reads the rest of `fd` into `buffer` from byte `filled` on, expecting about `expected` more bytes.
// Leaves `padding` bytes of room behind the data. Returns the new fill level.
std::size_t readToEnd(int fd, ReadBuffer& buffer, std::size_t filled, std::size_t expected,
                      std::size_t padding) {
    // PERF NOTE: the buffer is sized for the whole file at once, so nothing is copied on the way.
    buffer.reserve(filled + expected + padding, filled);
    while (true) {
        if (buffer.size() - padding - filled < kReadBlock / 16)
            buffer.reserve(filled + kReadBlock + padding, filled);
        const ssize_t got = ::read(fd, buffer.data() + filled, buffer.size() - padding - filled);
        if (got < 0) {
            if (errno == EINTR) continue;
            break;
        }
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    return filled;
}

}  // namespace

struct ClaudeCodeLog::Reader {
    explicit Reader(const Clock& clock) : parser(clock) {}
    LogLineParser parser;
    ReadBuffer buffer;  // carry + chunk + parser padding, reused across reads
};

ClaudeCodeLog::ClaudeCodeLog(const Environment& environment, std::filesystem::path userHome,
                             const Clock& clock)
    : m_home(resolveHome(environment, userHome)), m_clock(clock) {
    m_readers.push_back(std::make_unique<Reader>(m_clock));
}

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

    readAll(candidateLogFiles(m_home, cutoff));

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

void ClaudeCodeLog::readAll(const std::vector<LogCandidate>& candidates) {
    Reader& first = *m_readers.front();
    std::unordered_set<std::string> stems;
    bool distinct = true;
    for (const auto& candidate : candidates)
        distinct = distinct && stems.insert(candidate.path.stem().string()).second;
    if (!distinct) {
        // Files that share a session id meet in one record: read them strictly one after the other.
        for (const auto& candidate : candidates) {
            if (auto job = prepare(candidate)) execute(*job, first, m_events);
        }
        return;
    }
    // No two files share a session, so every file's work is its own: find it all first, then read.
    std::vector<Job> jobs;
    std::uint64_t bytes = 0;
    for (const auto& candidate : candidates) {
        if (auto job = prepare(candidate)) {
            bytes += job->wholeJson ? job->size : job->size - std::min(job->size, job->state->offset);
            jobs.push_back(std::move(*job));
        }
    }
    const unsigned threads = std::min(4u, std::max(1u, std::thread::hardware_concurrency()));
    if (bytes < kParallelBytes || threads < 2 || jobs.size() < 2) {
        for (auto& job : jobs) execute(job, first, m_events);
        return;
    }
    // PERF NOTE: a cold scan reads hundreds of megabytes; the files are parsed on all cores, each
    // into its own event list, and the lists joined in file order, as one thread would have.
    while (m_readers.size() < threads) m_readers.push_back(std::make_unique<Reader>(m_clock));
    std::atomic<std::size_t> next{0};
    const auto work = [&](Reader& reader) {
        for (std::size_t i = next++; i < jobs.size(); i = next++) execute(jobs[i], reader, jobs[i].events);
    };
    std::vector<std::thread> workers;
    for (unsigned t = 1; t < threads; ++t) workers.emplace_back(work, std::ref(*m_readers[t]));
    work(first);
    for (auto& worker : workers) worker.join();
    for (auto& job : jobs) {
        m_events.insert(m_events.end(), std::make_move_iterator(job.events.begin()),
                        std::make_move_iterator(job.events.end()));
    }
}

std::optional<ClaudeCodeLog::Job> ClaudeCodeLog::prepare(const LogCandidate& candidate) {
    // The listing has just read the file's attributes; they are this scan's one attribute read.
    const std::filesystem::path& url = candidate.path;
    const AgentTool tool = candidate.tool;
    std::string path = url.native();
    const std::uint64_t size = candidate.size;
    const Date modified = candidate.modified;

    auto stateIt = m_files.find(path);
    if (stateIt == m_files.end()) {
        stateIt = m_files.emplace(path, FileState{}).first;
        stateIt->second.sessionId = url.stem().string();
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
    if (meta.fileModified != modified || meta.fileURL.native() != path) {
        meta.fileModified = modified;
        meta.fileURL = url;
        m_changed = true;
    }

    bool wholeJson = false;
    if (tool == AgentTool::gemini) {
        if (meta.cwd.empty()) {
            meta.cwd = geminiProjectRoot(url);
            m_changed = true;
        }
        wholeJson = url.extension() == ".json";
    }
    // PERF NOTE: an unchanged file ends here, after one attribute read.
    if (wholeJson ? state.jsonModified == modified : state.offset >= size) return std::nullopt;
    m_changed = true;
    return Job{url, std::move(path), tool, &state, &meta, size, modified, wholeJson, {}};
}

void ClaudeCodeLog::execute(Job& job, Reader& reader, std::vector<AIUsageEvent>& sink) {
    reader.parser.setSink(&sink);
    if (job.wholeJson) {
        readWholeJson(job, reader);
    } else {
        readLines(job, reader);
    }
}

void ClaudeCodeLog::readLines(Job& job, Reader& reader) {
    FileState& state = *job.state;
    const std::uint64_t size = job.size;
    ReadBuffer& buffer = reader.buffer;
    FileDescriptor file(::open(job.path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.fd < 0) return;
    // A failed seek leaves the read at the handle's position, its start.
    ::lseek(file.fd, static_cast<off_t>(state.offset), SEEK_SET);

    const std::size_t padding = LogLineParser::padding();
    const std::size_t carryLength = state.carry.size();

    // PERF NOTE: the bytes stream through one reused block that stays in the processor's cache: a
    // block is read, its finished lines are parsed where they lie, and the unfinished last line moves
    // to the front for the next block. The lines and the tail come out as if carry and chunk had been
    // joined in one piece.
    buffer.reserve(std::max(carryLength, kStreamBlock) + kStreamBlock + padding, 0);
    std::memcpy(buffer.data(), state.carry.data(), carryLength);
    std::size_t pending = carryLength;  // bytes in front of the block not yet split into lines
    std::size_t chunkLength = 0;
    while (true) {
        if (buffer.size() - padding - pending < kStreamBlock)
            buffer.reserve(pending + kStreamBlock + padding, pending);
        const ssize_t got = ::read(file.fd, buffer.data() + pending, buffer.size() - padding - pending);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        const auto count = static_cast<std::size_t>(got);
        chunkLength += count;
        const std::size_t filled = pending + count;
        std::memset(buffer.data() + filled, ' ', padding);
        const std::size_t tail = parseLines(buffer.data(), filled, buffer.size(), job, reader);
        pending = filled - tail;
        if (tail > 0 && pending > 0) std::memmove(buffer.data(), buffer.data() + tail, pending);
    }
    state.carry.assign(buffer.data(), pending);
    finishRead(state, size, chunkLength);
}

std::size_t ClaudeCodeLog::parseLines(const char* data, std::size_t filled, std::size_t readable, Job& job,
                                      Reader& reader) {
    const std::size_t padding = LogLineParser::padding();
    std::size_t lineStart = 0;
    while (lineStart < filled) {
        const void* found = std::memchr(data + lineStart, '\n', filled - lineStart);
        if (found == nullptr) break;
        const auto lineEnd = static_cast<std::size_t>(static_cast<const char*>(found) - data);
        const std::size_t length = lineEnd - lineStart;
        if (length > 0) {
            if (readable - lineStart >= length + padding) {
                reader.parser.line(data + lineStart, length, readable - lineStart, job.tool, *job.state,
                                   *job.meta);
            } else {
                reader.buffer.reserve(length + padding, 0);
                std::memcpy(reader.buffer.data(), data + lineStart, length);
                std::memset(reader.buffer.data() + length, ' ', padding);
                reader.parser.line(reader.buffer.data(), length, reader.buffer.size(), job.tool, *job.state,
                                   *job.meta);
            }
        }
        lineStart = lineEnd + 1;
    }
    return lineStart;
}

void ClaudeCodeLog::finishRead(FileState& state, std::uint64_t size, std::size_t chunkLength) {
    // The unfinished tail stays in the carry and also in front of the offset, so a line finished later
    // is read twice over and dropped as unparsable. A carry longer than the chunk can't be subtracted.
    if (state.carry.size() > chunkLength) agentsFatal("aiusage: unfinished line longer than the bytes read");
    state.offset = std::min<std::uint64_t>(size, state.offset + (chunkLength - state.carry.size()));
    if (state.carry.size() >= kMaxCarry) {
        state.carry.clear();
        state.carry.shrink_to_fit();
    }
}

void ClaudeCodeLog::readWholeJson(Job& job, Reader& reader) {
    FileState& state = *job.state;
    AISessionMeta& meta = *job.meta;
    const Date modified = job.modified;
    ReadBuffer& buffer = reader.buffer;
    FileDescriptor file(::open(job.path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.fd < 0) return;
    const std::size_t padding = LogLineParser::padding();
    const std::size_t filled = readToEnd(file.fd, buffer, 0, static_cast<std::size_t>(job.size), padding);
    std::memset(buffer.data() + filled, ' ', padding);

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
    if (!reader.parser.geminiDocument(buffer.data(), filled, buffer.size(), fresh, freshMeta)) return;
    fresh.jsonModified = modified;
    fresh.offset = job.size;
    state = std::move(fresh);
    meta = std::move(freshMeta);
}

}  // namespace vantrelle
