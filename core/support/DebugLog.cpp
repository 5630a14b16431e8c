#include "support/DebugLog.h"

#include <fmt/format.h>

#include <cmath>
#include <ctime>
#include <fstream>
#include <mutex>
#include <utility>

namespace vantrelle {

namespace {

struct Sink {
    std::filesystem::path file;
    std::unique_ptr<SerialQueue> queue;
    const Clock* clock;
};

std::mutex& sinkMutex() {
    static std::mutex mutex;
    return mutex;
}

std::shared_ptr<Sink>& currentSink() {
    static std::shared_ptr<Sink> sink;
    return sink;
}

void appendToFile(const std::filesystem::path& file, const std::string& line) {
    std::error_code error;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
    std::ofstream out(file, std::ios::binary | std::ios::app);
    out << line;  // failures are swallowed: a log must never disturb the program
}

}  // namespace

std::atomic<bool> DebugLog::s_on{false};

void DebugLog::configureFromEnvironment(const Environment& environment, QueueFactory& queues) {
    auto path = environment.get("VANTRELLE_DEBUG_LOG");
    if (!path || path->empty()) return;
    configure(*path, queues.make("debuglog"));
}

void DebugLog::configure(std::filesystem::path file, std::unique_ptr<SerialQueue> queue, const Clock& clock) {
    std::lock_guard lock(sinkMutex());
    currentSink() = std::make_shared<Sink>(Sink{std::move(file), std::move(queue), &clock});
    s_on = true;
}

void DebugLog::disable() {
    std::shared_ptr<Sink> old;
    {
        std::lock_guard lock(sinkMutex());
        s_on = false;
        old = std::exchange(currentSink(), nullptr);
    }
    // Dropping the queue outside the lock lets pending lines finish without blocking writers.
}

std::string DebugLog::timestamp(Date date) {
    const double whole = std::floor(date.seconds);
    const auto seconds = static_cast<std::time_t>(whole);
    auto millis = static_cast<int>(std::lround((date.seconds - whole) * 1000.0));
    if (millis > 999) millis = 999;
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:02}:{:02}:{:02}.{:03}", local.tm_hour, local.tm_min, local.tm_sec, millis);
}

void DebugLog::append(const std::string& message) {
    std::shared_ptr<Sink> sink;
    {
        std::lock_guard lock(sinkMutex());
        sink = currentSink();
    }
    if (!sink) return;
    std::string line = timestamp(sink->clock->now());
    line += ' ';
    line += message;
    line += '\n';
    sink->queue->async([file = sink->file, line = std::move(line)] { appendToFile(file, line); });
}

}  // namespace vantrelle
