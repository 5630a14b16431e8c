#include "agents/ClaudeCodeLog.h"

#include <algorithm>
#include <atomic>
#include <span>
#include <thread>
#include <unordered_set>

#include "agents/LogFileReader.h"
#include "agents/LogLocator.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

constexpr std::uint64_t kParallelBytes = 16u << 20;  // below this one thread is quicker
constexpr std::uint64_t kBatchBytes = 64u << 20;     // read before their results are merged
constexpr Date kNoStart{1e300};                      // a log without any date starts after all others

// Each kind of problem is written to the debug log the first time a file shows it; later ones are
// only counted, so a broken log can't flood the log.
void logProblems(const LogProblems& found, LogFileState& state, const std::filesystem::path& path) {
    struct Kind {
        std::int64_t LogProblems::*count;
        const char* what;
    };
    static constexpr Kind kKinds[] = {
        {&LogProblems::brokenLines, "lines that are not a whole JSON object"},
        {&LogProblems::futureLines, "lines dated more than a day ahead"},
        {&LogProblems::longLines, "lines over 1,000,000 bytes"},
        {&LogProblems::unreadableFiles, "a file that is not a regular file or can't be read"},
        {&LogProblems::oversizedFiles, "a whole-file log too large to parse"},
    };
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        const std::int64_t count = found.*kKinds[i].count;
        const auto bit = static_cast<std::uint8_t>(1u << i);
        if (count == 0 || (state.loggedProblems & bit) != 0) continue;
        state.loggedProblems |= bit;
        DebugLog::write([&] {
            return "aiusage: skipped " + std::to_string(count) + " " + kKinds[i].what + ": " + path.string();
        });
    }
}

}  // namespace

ClaudeCodeLog::ClaudeCodeLog(const Environment& environment, const std::filesystem::path& userHome,
                             const Clock& clock, double history)
    : m_home(resolveHome(environment, userHome)), m_clock(clock), m_history(history) {
    m_readers.push_back(std::make_unique<LogFileReader>());
}

ClaudeCodeLog::~ClaudeCodeLog() = default;

std::filesystem::path ClaudeCodeLog::resolveHome(const Environment& environment,
                                                 const std::filesystem::path& userHome) {
    if (auto value = environment.get("VANTRELLE_AI_HOME")) return std::filesystem::path(*value);
    return userHome;
}

AILogSnapshot ClaudeCodeLog::scan() {
    const Date now = m_clock.now();
    const Date cutoff = now - m_history;
    ++m_generation;

    readAll(candidateLogFiles(m_home, cutoff), now);

    // A log that no longer qualifies, by age or removal, takes its session and events with it.
    std::vector<std::string> gone;
    for (const auto& [path, state] : m_files) {
        if (state.scanGeneration != m_generation) gone.push_back(path);
    }
    for (const auto& path : gone) forget(path);

    const auto before = m_events.size();
    std::erase_if(m_events, [cutoff](const AIUsageEvent& event) { return event.timestamp < cutoff; });
    if (m_events.size() != before) m_changed = true;
    // The other events only age; the published list needs renewing once the oldest falls out.
    if (m_oldestPublished && *m_oldestPublished < cutoff) m_changed = true;

    // PERF NOTE: an unchanged scan hands out the lists of the last one; no event is copied.
    if (m_changed || !m_publishedEvents || !m_publishedSessions) publish(cutoff);
    AILogSnapshot snapshot;
    snapshot.scannedAt = now;
    snapshot.eventList = m_publishedEvents;
    snapshot.sessionMap = m_publishedSessions;
    snapshot.problems = m_problems;
    return snapshot;
}

void ClaudeCodeLog::publish(Date cutoff) {
    auto events = std::make_shared<AILogSnapshot::Events>();
    auto sessions = std::make_shared<AILogSnapshot::Sessions>(m_sessions);
    events->reserve(m_replies.size() + m_events.size());
    addClaudeEvents(cutoff, *events, *sessions);
    events->insert(events->end(), m_events.begin(), m_events.end());
    for (const auto& [path, state] : m_files) {
        for (const auto& [id, event] : state.geminiEvents) {
            if (event.timestamp >= cutoff) events->push_back(event);
        }
    }
    m_oldestPublished.reset();
    for (const auto& event : *events) {
        if (event.tool == AgentTool::codex) continue;
        if (!m_oldestPublished || event.timestamp < *m_oldestPublished) m_oldestPublished = event.timestamp;
    }
    m_publishedEvents = std::move(events);
    m_publishedSessions = std::move(sessions);
    m_changed = false;
}

void ClaudeCodeLog::addClaudeEvents(Date cutoff, AILogSnapshot::Events& events,
                                    AILogSnapshot::Sessions& sessions) const {
    struct Owner {
        const std::string* path = nullptr;
        const FileState* state = nullptr;
        Date start = kNoStart;
    };
    const auto ownerOf = [&](std::uint32_t file) {
        Owner owner;
        const auto pathIt = m_pathOf.find(file);
        if (pathIt == m_pathOf.end()) return owner;
        owner.path = pathIt->second;
        owner.state = &m_files.find(*owner.path)->second;
        const auto meta = m_sessions.find(owner.state->sessionId);
        if (meta != m_sessions.end() && meta->second.firstTimestamp)
            owner.start = *meta->second.firstTimestamp;
        return owner;
    };
    m_replies.forEach([&](const ClaudeReplies::Reply& reply) {
        // A reply belongs to the session whose log starts earliest; equal starts: the path first in order.
        Owner owner = ownerOf(reply.seen.front().file);
        for (std::size_t i = 1; i < reply.seen.size(); ++i) {
            const Owner other = ownerOf(reply.seen[i].file);
            if (!other.state) continue;
            if (!owner.state || other.start < owner.start ||
                (other.start == owner.start && *other.path < *owner.path))
                owner = other;
        }
        if (!owner.state) return;
        AIUsageEvent event = m_replies.event(reply);
        event.sessionId = owner.state->sessionId;
        if (const auto meta = sessions.find(event.sessionId); meta != sessions.end()) {
            ++meta->second.messages;
            if (!event.model.empty()) ++meta->second.modelCounts[event.model];
        }
        if (event.timestamp >= cutoff) events.push_back(std::move(event));
    });
}

void ClaudeCodeLog::forget(const std::string& path) {
    auto it = m_files.find(path);
    if (it == m_files.end()) return;
    const std::string sessionId = it->second.sessionId;
    m_replies.dropFile(it->second.id);
    m_pathOf.erase(it->second.id);
    m_files.erase(it);
    std::erase_if(m_events, [&](const AIUsageEvent& event) { return event.sessionId == sessionId; });
    m_sessions.erase(sessionId);
    m_changed = true;
}

void ClaudeCodeLog::readAll(const std::vector<LogCandidate>& candidates, Date now) {
    std::unordered_set<std::string> stems;
    bool distinct = true;
    for (const auto& candidate : candidates)
        distinct = distinct && stems.insert(candidate.path.stem().string()).second;
    if (!distinct) {
        // Files that share a session id meet in one record: read them strictly one after the other.
        for (const auto& candidate : candidates) {
            if (auto job = prepare(candidate)) {
                m_readers.front()->read(*job, now);
                merge(*job);
            }
        }
        return;
    }
    // No two files share a session, so every file's work is its own: find it all first, then read.
    std::vector<LogRead> jobs;
    for (const auto& candidate : candidates) {
        if (auto job = prepare(candidate)) jobs.push_back(std::move(*job));
    }
    // PERF NOTE: a batch's results are merged in file order and freed before the next batch is read,
    // so a cold scan of a gigabyte never holds the figures of every file at once.
    for (std::size_t begin = 0; begin < jobs.size();) {
        std::size_t end = begin;
        std::uint64_t bytes = 0;
        while (end < jobs.size() && (end == begin || bytes < kBatchBytes)) {
            const LogRead& job = jobs[end++];
            bytes += job.wholeJson ? job.size : job.size - std::min(job.size, job.state->offset);
        }
        readBatch(std::span(jobs).subspan(begin, end - begin), bytes, now);
        for (; begin < end; ++begin) {
            merge(jobs[begin]);
            jobs[begin].sink = LineSink{};
        }
    }
}

void ClaudeCodeLog::readBatch(std::span<LogRead> jobs, std::uint64_t bytes, Date now) {
    LogFileReader& first = *m_readers.front();
    const unsigned threads = std::min(4u, std::max(1u, std::thread::hardware_concurrency()));
    if (bytes < kParallelBytes || threads < 2 || jobs.size() < 2) {
        for (auto& job : jobs) first.read(job, now);
        return;
    }
    // PERF NOTE: a cold scan reads hundreds of megabytes; the files are parsed on all cores, each
    // into its own sink.
    while (m_readers.size() < threads) m_readers.push_back(std::make_unique<LogFileReader>());
    std::atomic<std::size_t> next{0};
    const auto work = [&](LogFileReader& reader) {
        for (std::size_t i = next++; i < jobs.size(); i = next++) reader.read(jobs[i], now);
    };
    std::vector<std::thread> workers;
    for (unsigned t = 1; t < threads; ++t) workers.emplace_back(work, std::ref(*m_readers[t]));
    work(first);
    for (auto& worker : workers) worker.join();
}

void ClaudeCodeLog::merge(LogRead& job) {
    m_events.insert(m_events.end(), std::make_move_iterator(job.sink.events.begin()),
                    std::make_move_iterator(job.sink.events.end()));
    for (auto& sighting : job.sink.claudeReplies) {
        m_replies.add(job.state->id, std::move(sighting.key), sighting.figures,
                      job.sink.models[sighting.figures.model]);
    }
    logProblems(job.sink.problems, *job.state, job.url);
    m_problems += job.sink.problems;
}

std::optional<LogRead> ClaudeCodeLog::prepare(const LogCandidate& candidate) {
    // The listing has just read the file's attributes; they are this scan's one attribute read.
    const std::filesystem::path& url = candidate.path;
    const std::string& path = url.native();
    const std::uint64_t size = candidate.size;
    const Date modified = candidate.modified;

    auto stateIt = m_files.find(path);
    std::string sessionId = url.stem().string();
    if (stateIt != m_files.end() && size < stateIt->second.offset) {
        // Truncated or replaced: start over from its first byte.
        sessionId = stateIt->second.sessionId;
        forget(path);
        stateIt = m_files.end();
    }
    if (stateIt == m_files.end()) {
        stateIt = m_files.emplace(path, FileState{}).first;
        stateIt->second.sessionId = std::move(sessionId);
        stateIt->second.id = m_nextFileId++;
        m_pathOf[stateIt->second.id] = &stateIt->first;
        m_changed = true;
    }
    FileState& state = stateIt->second;
    state.scanGeneration = m_generation;

    auto metaIt = m_sessions.find(state.sessionId);
    if (metaIt == m_sessions.end()) {
        AISessionMeta fresh;
        fresh.sessionId = state.sessionId;
        fresh.tool = candidate.tool;
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
    if (candidate.tool == AgentTool::gemini) {
        if (meta.cwd.empty()) {
            meta.cwd = geminiProjectRoot(url);
            m_changed = true;
        }
        wholeJson = url.extension() == ".json";
    }
    // PERF NOTE: an unchanged file ends here, after one attribute read.
    if (wholeJson ? (state.jsonModified == modified || state.jsonBroken == modified) : size == state.readEnd)
        return std::nullopt;
    m_changed = true;
    return LogRead{url, candidate.tool, &state, &meta, size, modified, wholeJson, {}};
}

}  // namespace vantrelle
