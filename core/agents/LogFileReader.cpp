#include "agents/LogFileReader.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "agents/RegularFile.h"
#include "support/FileDescriptor.h"

namespace vantrelle {

namespace {

constexpr std::size_t kStreamBlock = 1u << 20;  // read block; small enough to stay in cache
constexpr std::size_t kPadding = LogLineParser::padding();

void markUnreadable(LogRead& job) {
    if (job.state->unreadable) return;
    job.state->unreadable = true;
    ++job.sink.problems.unreadableFiles;
}

}  // namespace

// A byte buffer that grows without zero-filling and keeps its size between reads.
class LogFileReader::Buffer {
public:
    [[nodiscard]] char* data() { return m_data.get(); }
    [[nodiscard]] std::size_t size() const { return m_capacity; }
    // Room for `needed` bytes; what was in the buffer is kept.
    void reserve(std::size_t needed) {
        if (needed <= m_capacity) return;
        const std::size_t capacity = std::max(needed, m_capacity + m_capacity / 2);
        std::unique_ptr<char[]> grown(new char[capacity]);
        if (m_capacity > 0) std::memcpy(grown.get(), m_data.get(), m_capacity);
        m_data = std::move(grown);
        m_capacity = capacity;
    }

private:
    std::unique_ptr<char[]> m_data;
    std::size_t m_capacity = 0;
};

LogFileReader::LogFileReader() : m_buffer(std::make_unique<Buffer>()) {}
LogFileReader::~LogFileReader() = default;

void LogFileReader::read(LogRead& job, Date now) {
    if (job.wholeJson) {
        readWholeJson(job, now);
    } else {
        readLines(job, now);
    }
}

void LogFileReader::readLines(LogRead& job, Date now) {
    LogFileState& state = *job.state;
    const FileDescriptor file(openRegularFile(job.url));
    if (!file.isOpen() || ::lseek(file.get(), static_cast<off_t>(state.offset), SEEK_SET) < 0) {
        markUnreadable(job);
        return;
    }
    state.unreadable = false;
    LineContext context{state, *job.meta, job.sink, now};

    // PERF NOTE: the bytes stream through one block that stays in the processor's cache: a block is
    // read, its finished lines are parsed where they lie, and the unfinished last line moves to the
    // front for the next block. Room for the longest line kept plus a block is made once.
    m_buffer->reserve(maxLine + kStreamBlock + kPadding);
    char* const data = m_buffer->data();
    std::size_t pending = 0;  // the unfinished line at the front of the buffer
    std::uint64_t done = 0;   // bytes behind the offset that were read whole or skipped
    bool skipping = state.skippingLongLine;
    bool failed = false;
    while (true) {
        const ssize_t got = ::read(file.get(), data + pending, kStreamBlock);
        if (got < 0 && errno == EINTR) continue;
        failed = got < 0;
        if (got <= 0) break;
        const std::size_t filled = pending + static_cast<std::size_t>(got);
        std::size_t from = 0;
        if (skipping) {  // nothing is pending while a long line is skipped
            const void* feed = std::memchr(data, '\n', filled);
            if (feed == nullptr) {
                done += filled;
                continue;
            }
            from = static_cast<std::size_t>(static_cast<const char*>(feed) - data) + 1;
            skipping = false;
        }
        std::memset(data + filled, ' ', kPadding);
        const std::size_t tail = parseLines(data, from, filled, job, context);
        done += tail;
        pending = filled - tail;
        if (pending > maxLine) {
            ++job.sink.problems.longLines;
            skipping = true;
            done += pending;
            pending = 0;
        } else if (tail > 0 && pending > 0) {
            std::memmove(data, data + tail, pending);
        }
    }
    // The last bytes without a line feed count now if they already are a whole JSON object; a
    // broken or unfinished one changes nothing and is read again with what follows.
    if (pending > 0 && !skipping && !failed) {
        std::memset(data + pending, ' ', kPadding);
        if (m_parser.line(data, pending, m_buffer->size(), job.tool, context) == LineRead::applied) {
            done += pending;
            pending = 0;
        }
    }
    state.offset += done;
    state.skippingLongLine = skipping;
    // After a failed read the same size must not pass for "nothing new".
    state.readEnd = failed ? 0 : state.offset + pending;
    if (failed) markUnreadable(job);
}

std::size_t LogFileReader::parseLines(const char* data, std::size_t from, std::size_t filled, LogRead& job,
                                      LineContext& context) {
    std::size_t lineStart = from;
    while (lineStart < filled) {
        const void* found = std::memchr(data + lineStart, '\n', filled - lineStart);
        if (found == nullptr) break;
        const auto lineEnd = static_cast<std::size_t>(static_cast<const char*>(found) - data);
        const std::size_t length = lineEnd - lineStart;
        if (length > maxLine) {
            ++job.sink.problems.longLines;
        } else if (length > 0 && m_parser.line(data + lineStart, length, m_buffer->size() - lineStart,
                                               job.tool, context) != LineRead::applied) {
            ++job.sink.problems.brokenLines;
        }
        lineStart = lineEnd + 1;
    }
    return lineStart;
}

void LogFileReader::readWholeJson(LogRead& job, Date now) {
    LogFileState& state = *job.state;
    AISessionMeta& meta = *job.meta;
    if (job.size > maxDocument) {
        // Not retried until the file changes again.
        ++job.sink.problems.oversizedFiles;
        state.jsonModified = job.modified;
        return;
    }
    const FileDescriptor file(openRegularFile(job.url));
    if (!file.isOpen()) {
        markUnreadable(job);
        return;
    }
    state.unreadable = false;
    std::size_t filled = 0;
    while (true) {
        m_buffer->reserve(filled + kStreamBlock + kPadding);
        const ssize_t got = ::read(file.get(), m_buffer->data() + filled, kStreamBlock);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            markUnreadable(job);
            return;
        }
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
        if (filled > maxDocument) return;  // grew past the limit while read; the next scan sees its size
    }
    std::memset(m_buffer->data() + filled, ' ', kPadding);

    // A rewrite starts over: the file holds the whole session each time.
    LogFileState fresh;
    fresh.sessionId = state.sessionId;
    fresh.id = state.id;
    fresh.scanGeneration = state.scanGeneration;
    fresh.loggedProblems = state.loggedProblems;
    AISessionMeta freshMeta;
    freshMeta.sessionId = meta.sessionId;
    freshMeta.tool = meta.tool;
    freshMeta.fileURL = meta.fileURL;
    freshMeta.cwd = meta.cwd;
    freshMeta.fileModified = job.modified;
    LineContext context{fresh, freshMeta, job.sink, now};
    if (!m_parser.geminiDocument(m_buffer->data(), filled, m_buffer->size(), context)) {
        // Old events stay; a log caught half-written is read again once its writer has changed it.
        ++job.sink.problems.brokenLines;
        state.jsonBroken = job.modified;
        return;
    }
    fresh.jsonModified = job.modified;
    fresh.offset = fresh.readEnd = job.size;
    state = std::move(fresh);
    meta = std::move(freshMeta);
}

}  // namespace vantrelle
