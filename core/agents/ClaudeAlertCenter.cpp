#include "agents/ClaudeAlertCenter.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <vector>

#include "support/DebugLog.h"
#include "support/SharedInstance.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

std::string projectName(const std::string& cwd) {
    if (cwd.empty()) return "Claude Code";
    fs::path path(cwd);
    while (path.has_relative_path() && path.filename().empty()) path = path.parent_path();  // "a/b/" → "b"
    const std::string name = path.filename().string();
    return name.empty() ? cwd : name;
}

std::uint64_t sizeOf(const fs::path& file) {
    std::error_code error;
    const auto size = fs::file_size(file, error);
    return error ? 0 : size;
}

}  // namespace

ClaudeAlertCenter& ClaudeAlertCenter::shared() {
    return SharedInstance<ClaudeAlertCenter>::get();
}

ClaudeAlertCenter::ClaudeAlertCenter(Dependencies dependencies) : m_d(std::move(dependencies)) {}

std::optional<Date> ClaudeAlertCenter::fileModificationDate(const fs::path& file) {
    struct stat info {};
    if (::stat(file.c_str(), &info) != 0) return std::nullopt;
    return Date{static_cast<double>(info.st_mtim.tv_sec) + info.st_mtim.tv_nsec / 1e9};
}

void ClaudeAlertCenter::start() {
    if (m_started || m_d.demoMode) return;
    m_started = true;

    std::error_code error;
    fs::create_directories(m_d.eventsFile.parent_path(), error);
    if (!fs::exists(m_d.eventsFile, error)) std::ofstream(m_d.eventsFile, std::ios::app).flush();
    // Events from before this launch are never replayed.
    m_offset = sizeOf(m_d.eventsFile);

    m_watch = m_d.watcher.watchFile(m_d.eventsFile, [this] { readNew(); });
    if (!m_watch) {
        DebugLog::write([&] { return "claude alerts: cannot watch " + m_d.eventsFile.string(); });
        return;
    }
    const auto report = [](bool installed) {
        DebugLog::write([&] {
            return std::string("claude alerts: watching events, hooks installed=") +
                   (installed ? "true" : "false");
        });
    };
    // The answer needs Claude Code's settings file, which is read off the main thread.
    if (m_d.hooksInstalled) {
        m_d.hooksInstalled(report);
    } else {
        report(false);
    }
}

void ClaudeAlertCenter::readNew() {
    std::ifstream in(m_d.eventsFile, std::ios::binary);
    if (!in) return;
    in.seekg(0, std::ios::end);
    const auto end = in.tellg();
    if (end < 0) return;
    const auto size = static_cast<std::uint64_t>(end);
    if (size < m_offset) m_offset = 0;  // truncated from outside
    if (size == m_offset) return;

    in.seekg(static_cast<std::streamoff>(m_offset));
    std::string chunk(size - m_offset, '\0');
    in.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    chunk.resize(static_cast<std::size_t>(in.gcount()));
    in.close();

    // A half-written line waits for the next append.
    const auto lastFeed = chunk.rfind('\n');
    if (lastFeed == std::string::npos) return;
    m_offset += lastFeed + 1;

    std::size_t start = 0;
    while (start <= lastFeed) {
        const auto feed = chunk.find('\n', start);
        if (feed > start) handle(chunk.substr(start, feed - start));
        start = feed + 1;
    }
    trimIfLarge(size);
}

void ClaudeAlertCenter::trimIfLarge(std::uint64_t size) {
    if (size < kTrimSize || m_offset < size) return;
    std::ofstream truncate(m_d.eventsFile, std::ios::binary | std::ios::trunc);
    if (truncate.is_open()) m_offset = 0;
}

void ClaudeAlertCenter::handle(const std::string& line) {
    using Json = nlohmann::json;
    const Json event = Json::parse(line, nullptr, /*allow_exceptions=*/false);
    if (!event.is_object()) return;
    auto stringField = [&event](const char* key) -> std::optional<std::string> {
        auto it = event.find(key);
        if (it == event.end() || !it->is_string()) return std::nullopt;
        return it->get<std::string>();
    };

    const auto sessionId = stringField("session_id");
    if (!sessionId) return;
    const std::string project = projectName(stringField("cwd").value_or(""));
    std::optional<fs::path> transcript;
    if (auto path = stringField("transcript_path")) transcript = fs::path(*path);
    const std::string name = stringField("hook_event_name").value_or("");

    if (name == "Notification") {
        const std::string type = stringField("notification_type").value_or("");
        AgentAlertKind kind = AgentAlertKind::approval;
        if (type == "idle_prompt") {
            // A pending approval is never downgraded.
            auto existing = m_alerts.find(*sessionId);
            if (existing != m_alerts.end() && existing->second.kind == AgentAlertKind::approval) return;
            kind = AgentAlertKind::waiting;
        }
        store(Alert{*sessionId, project, kind, m_d.clock.now(), transcript}, type);
        publish();
    } else if (name == "Stop") {
        auto active = event.find("stop_hook_active");
        if (active != event.end() && active->is_boolean() && active->get<bool>()) return;
        m_alerts.erase(*sessionId);
        m_d.activities.flash(LiveActivity{LiveActivity::AgentAlert{project, AgentAlertKind::done}}, 5.0);
        m_d.notifications.post(Notifications::claudeNeedsUser, "Claude finished in " + project);
        DebugLog::write([&] { return "claude alerts: done in " + project; });
        publish();
    } else if (name == "UserPromptSubmit") {
        m_alerts.erase(*sessionId);
        publish();
    }
}

void ClaudeAlertCenter::store(Alert alert, const std::string& notificationType) {
    const AgentAlertKind kind = alert.kind;
    const std::string project = alert.project;
    m_alerts.insert_or_assign(alert.sessionId, std::move(alert));
    DebugLog::write([&] { return "claude alerts: " + notificationType + " in " + project; });
    m_d.notifications.post(Notifications::claudeNeedsUser, kind == AgentAlertKind::approval
                                                               ? "Claude needs your approval"
                                                               : "Claude is waiting for you");
    if (m_d.settings.playSounds()) m_d.sounds.play(kind == AgentAlertKind::approval ? "Ping" : "Tink");
}

void ClaudeAlertCenter::publish() {
    const Alert* first = nullptr;
    for (const auto& [session, alert] : m_alerts) {
        // Approval before waiting; among equals the older first.
        if (!first || alert.kind < first->kind || (alert.kind == first->kind && alert.at < first->at))
            first = &alert;
    }
    if (first) {
        m_d.activities.set(LiveActivity{LiveActivity::AgentAlert{first->project, first->kind}},
                           LiveActivityCenter::Source::agentAlert);
    } else {
        m_d.activities.set(std::nullopt, LiveActivityCenter::Source::agentAlert);
    }
    if (!m_alerts.empty() && !m_sweep) {
        m_sweep = m_d.scheduler.repeat(kSweepInterval, [this] { sweepAnswered(); });
    } else if (m_alerts.empty()) {
        m_sweep.reset();
    }
}

void ClaudeAlertCenter::sweepAnswered() {
    const Date now = m_d.clock.now();
    const auto before = m_alerts.size();
    std::erase_if(m_alerts, [&](const auto& entry) {
        const Alert& alert = entry.second;
        if (now - alert.at > kStaleAfter) return true;
        if (!alert.transcript) return false;
        // The transcript moving on means the user answered; an unreadable one waits for staleness.
        auto modified = m_d.modificationDate(*alert.transcript);
        return modified && *modified > alert.at + 1.0;
    });
    if (m_alerts.size() != before) publish();
}

}  // namespace vantrelle
