#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "agents/ClaudeAlertCenter.h"
#include "fakes/FakeFileWatcher.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeOverlayPorts.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::TempDir;

class ClaudeAlertCenterTest : public ::testing::Test {
protected:
    ClaudeAlertCenter& started() {
        center.emplace(ClaudeAlertCenter::Dependencies{
            events, scheduler, scheduler, activities, notifications, settings, sounds, watcher,
            [](auto answer) { answer(true); }, false,
            [this](const std::filesystem::path& p) {
                return modified.contains(p) ? std::optional(modified.at(p)) : std::nullopt;
            }});
        messages = notifications.observeMessage(Notifications::claudeNeedsUser,
                                                [this](const std::string& m) { posted.push_back(m); });
        center->start();
        return *center;
    }

    void append(std::string_view text) {
        std::ofstream(events, std::ios::binary | std::ios::app) << text;
        watcher.wake();
    }
    static std::string notification(std::string_view session, std::string_view type,
                                    std::string_view cwd = "/work/api") {
        return R"({"session_id":")" + std::string(session) + R"(","cwd":")" + std::string(cwd) +
               R"(","transcript_path":"/t/)" + std::string(session) +
               R"(.jsonl","hook_event_name":"Notification","notification_type":")" + std::string(type) +
               "\"}\n";
    }
    static std::string stop(std::string_view session, bool active = false) {
        return R"({"session_id":")" + std::string(session) +
               R"(","cwd":"/work/api","hook_event_name":"Stop","stop_hook_active":)" +
               (active ? "true" : "false") + "}\n";
    }
    [[nodiscard]] std::optional<LiveActivity::AgentAlert> shown() const {
        const auto& slot = activities.activity(LiveActivityCenter::Source::agentAlert);
        if (!slot) return std::nullopt;
        return *slot->as<LiveActivity::AgentAlert>();
    }

    TempDir dir;
    std::filesystem::path events = dir / "data/Vantrelle/claude-events.jsonl";
    VirtualScheduler scheduler;
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem login;
    AppSettings settings{defaults, notifications, login, scheduler};
    LiveActivityCenter activities{scheduler};
    testing::RecordingSounds sounds;
    testing::FakeFileWatcher watcher;
    std::map<std::filesystem::path, Date> modified;
    std::vector<std::string> posted;
    Connection messages;
    std::optional<ClaudeAlertCenter> center;
};

TEST_F(ClaudeAlertCenterTest, ApprovalIsNeverDowngradedAndTheOlderAlertIsShownFirst) {
    auto& c = started();
    append(notification("a", "permission_prompt", "/work/api/"));
    append(notification("a", "idle_prompt"));
    EXPECT_EQ(c.alerts().at("a").kind, AgentAlertKind::approval);
    append(notification("b", "idle_prompt", "/work/web"));
    append(notification("b", "elicitation_dialog", "/work/web"));
    EXPECT_EQ(c.alerts().at("b").kind, AgentAlertKind::approval);
    EXPECT_EQ(sounds.played, (std::vector<std::string>{"Ping", "Tink", "Ping"}));
    EXPECT_EQ(shown(), (LiveActivity::AgentAlert{"api", AgentAlertKind::approval})) << "older first";
}

TEST_F(ClaudeAlertCenterTest, OnlyNewWholeLinesAreReadOnceAndMalformedOnesAreDropped) {
    // Events from before the launch are never replayed.
    dir.write("data/Vantrelle/claude-events.jsonl", notification("old", "permission_prompt"));
    auto& c = started();
    c.readNew();
    EXPECT_TRUE(c.alerts().empty());
    const std::string line = notification("s", "permission_prompt");
    append(line.substr(0, 25));
    EXPECT_TRUE(c.alerts().empty());
    append(line.substr(25));
    append("");
    EXPECT_EQ(sounds.played.size(), 1u);

    append("not json\n[1,2]\n{\"cwd\":\"/x\"}\n\n" + notification("t", "permission_prompt"));
    EXPECT_EQ(c.alerts().size(), 2u);
}

TEST_F(ClaudeAlertCenterTest, StopClearsFlashesDoneAndSkipsActiveStopHooksAndAPromptClears) {
    settings.setPlaySounds(false);
    auto& c = started();
    append(notification("s", "permission_prompt"));
    append(stop("s", true));
    EXPECT_EQ(c.alerts().size(), 1u);
    append(stop("s"));
    EXPECT_TRUE(c.alerts().empty());
    EXPECT_EQ(activities.current(), (LiveActivity{LiveActivity::AgentAlert{"api", AgentAlertKind::done}}));
    EXPECT_EQ(posted.back(), "Claude finished in api");
    EXPECT_TRUE(sounds.played.empty());
    scheduler.advance(5);
    EXPECT_FALSE(activities.current());

    append(notification("p", "idle_prompt"));
    append(R"({"session_id":"p","hook_event_name":"UserPromptSubmit"})"
           "\n");
    EXPECT_TRUE(c.alerts().empty());
}

TEST_F(ClaudeAlertCenterTest, SweepDropsAnsweredAndStaleAlerts) {
    auto& c = started();
    append(notification("answered", "permission_prompt"));
    append(notification("fresh", "permission_prompt"));
    append(notification("unknown", "idle_prompt"));
    const Date at = scheduler.now();
    modified["/t/answered.jsonl"] = at + 2.0;
    modified["/t/fresh.jsonl"] = at + 1.0;
    scheduler.advance(2);
    EXPECT_FALSE(c.alerts().contains("answered"));
    EXPECT_TRUE(c.alerts().contains("fresh"));
    EXPECT_TRUE(c.alerts().contains("unknown")) << "an unreadable transcript waits for staleness";
    scheduler.advance(1800);
    EXPECT_TRUE(c.alerts().empty());
}

TEST_F(ClaudeAlertCenterTest, TruncationFromOutsideStartsOverAndOnlyFilesOver32KBAreTrimmed) {
    auto& c = started();
    append(notification("a", "permission_prompt"));
    std::ofstream(events, std::ios::trunc).flush();
    watcher.wake();  // truncation wakes the watch like any write
    append(notification("b", "permission_prompt"));
    EXPECT_TRUE(c.alerts().contains("b"));

    std::ofstream(events, std::ios::trunc).flush();
    watcher.wake();
    std::string filler = R"({"session_id":"x","hook_event_name":"Other","pad":")";
    filler += std::string(32'768 - filler.size() - 3, 'p') + "\"}\n";
    append(filler);
    EXPECT_EQ(std::filesystem::file_size(events), 32'768u) << "exactly 32 KB is kept";
    append(R"({"session_id":"x","hook_event_name":"Other"})"
           "\n");
    EXPECT_EQ(std::filesystem::file_size(events), 0u);
}

}  // namespace
}  // namespace vantrelle
