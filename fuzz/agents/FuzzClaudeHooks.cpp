// Arbitrary bytes as Claude Code's settings file and as hook payloads in the events file.
//
// The settings are taken as they come or, when the first byte is 0xF0 or above, put into an odd
// shape first: as the value of "hooks", of an event, of one of our own groups, or nested around the
// 512-level limit or 100,000 levels deep. Nothing may crash, and every rule of the edit must hold:
// a successful install is found and is stable, a successful uninstall leaves none of ours, install
// then uninstall gives back the user's bytes, a refusal leaves the file as it was, the first backup
// holds the original, and nothing is written but the settings, the backup and the events file.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

#include "agents/ClaudeAlertCenter.h"
#include "agents/ClaudeHooks.h"
#include "fakes/FakeFileWatcher.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeOverlayPorts.h"
#include "platform/VirtualScheduler.h"
#include "support/JsonLayout.h"
#include "support/MemoryDefaultsStore.h"

namespace {

using namespace vantrelle;
namespace fs = std::filesystem;

// A broken rule is a crash: libFuzzer keeps the input.
void require(bool rule) {
    if (!rule) std::abort();
}

const fs::path& workFolder() {
    static const fs::path folder = [] {
        // Memory-backed where there is such a folder: every write is flushed to disk, and a run does
        // thousands of them.
        std::error_code error;
        const fs::path base =
            fs::is_directory("/dev/shm", error) ? fs::path("/dev/shm") : fs::temp_directory_path();
        std::string pattern = (base / "vantrelle-fuzz-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) std::abort();
        return fs::path(pattern);
    }();
    return folder;
}

void requireOnly(const fs::path& folder, std::initializer_list<std::string_view> allowed) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_directory()) continue;
        const auto name = entry.path().filename().string();
        bool known = false;
        for (auto a : allowed) known |= name == a;
        require(known);  // a write outside the files we own
    }
}

std::string readBack(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string nestedIn(std::string_view inner, std::size_t depth) {
    return std::string(depth, '[') + std::string(inner) + std::string(depth, ']');
}

std::string shaped(std::string_view bytes) {
    if (bytes.empty() || static_cast<unsigned char>(bytes[0]) < 0xF0) return std::string(bytes);
    const unsigned shape = static_cast<unsigned char>(bytes[0]) - 0xF0u;
    std::string_view rest = bytes.substr(1);
    const std::string inner(rest);
    switch (shape % 7) {
        case 0:
            return R"({"hooks": )" + inner + "}";
        case 1:
            return R"({"hooks": {"Stop": )" + inner + "}}";
        case 2:
            return R"({"model": 1e2, "hooks": {"Notification": [)" + inner + "]}}";
        case 3: {
            // Around the limit: 500 to 523 levels in all.
            const std::size_t depth = 498 + (rest.empty() ? 0 : static_cast<unsigned char>(rest[0]) % 24);
            return R"({"a": )" + nestedIn(rest.empty() ? "" : rest.substr(1), depth) + "}";
        }
        case 4:
            return R"({"a": )" + nestedIn(inner, 100'000) + "}";
        case 5:
            return R"({"hooks": {"Stop": [{"hooks": [{"command": "Vantrelle/claude-events.jsonl", "x": )" +
                   inner + "}]}]}}";
        default:
            return "{\r\n\t\"hooks\": {\r\n\t\t\"Stop\": [\r\n\t\t\t" + inner + "\r\n\t\t]\r\n\t}\r\n}";
    }
}

// Install adds into an empty container here, which uninstall can't tell from one it must remove.
bool addsIntoAnEmptyContainer(std::string_view text) {
    const auto top = scanJsonContainer(text, jsonDocumentStart(text));
    if (!top || top->elements.empty()) return true;
    const auto hooksAt = findJsonMember(text, *top, "hooks");
    if (!hooksAt) return false;
    const auto hooks = scanJsonContainer(text, top->elements[*hooksAt].value.begin);
    if (!hooks || hooks->elements.empty()) return true;
    for (const char* event : {"Notification", "Stop"}) {
        const auto at = findJsonMember(text, *hooks, event);
        if (!at) continue;
        const auto groups = scanJsonContainer(text, hooks->elements[*at].value.begin);
        if (groups && groups->elements.empty()) return true;
    }
    return false;
}

void checkEdits(const std::string& text, const std::string& command) {
    if (claudeSettingsProblem(text)) return;
    const bool before = claudeHooksInstalled(text);

    const auto installed = installClaudeHooks(text, command);
    switch (installed.outcome) {
        case ClaudeSettingsEdit::Outcome::refused:
            require(!installed.reason.empty());
            break;
        case ClaudeSettingsEdit::Outcome::unchanged:
            require(before);
            break;
        case ClaudeSettingsEdit::Outcome::changed: {
            require(!claudeSettingsProblem(installed.text));
            require(claudeHooksInstalled(installed.text));
            require(installClaudeHooks(installed.text, command).outcome ==
                    ClaudeSettingsEdit::Outcome::unchanged);
            const auto removed = uninstallClaudeHooks(installed.text);
            require(removed.outcome == ClaudeSettingsEdit::Outcome::changed);
            require(!claudeSettingsProblem(removed.text));
            require(!claudeHooksInstalled(removed.text));
            if (!before && !addsIntoAnEmptyContainer(text)) require(removed.text == text);
            break;
        }
    }
    const auto removed = uninstallClaudeHooks(text);
    if (removed.outcome == ClaudeSettingsEdit::Outcome::changed) {
        require(!claudeSettingsProblem(removed.text));
        require(!claudeHooksInstalled(removed.text));
    } else {
        require(removed.outcome == ClaudeSettingsEdit::Outcome::unchanged && !before);
    }
}

void checkFiles(const fs::path& root, const std::string& text, ClaudeHooks& hooks) {
    const fs::path settings = root / ".claude/settings.json";
    std::ofstream(settings, std::ios::binary) << text;
    const auto status = hooks.status();
    require(!status.installed || !status.problem);

    if (auto failure = hooks.install()) {
        require(readBack(settings) == text);  // a refusal changes nothing
    } else {
        require(hooks.isInstalled());
    }
    if (fs::exists(hooks.backupFile())) require(readBack(hooks.backupFile()) == text);
    if (!hooks.uninstall()) require(!hooks.isInstalled());
    requireOnly(root, {"settings.json", "settings.json.vantrelle-backup"});
}

void checkEvents(std::string_view bytes, const ClaudeHooks& hooks, const fs::path& root) {
    VirtualScheduler scheduler;
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem login;
    AppSettings settings(defaults, notifications, login, scheduler);
    LiveActivityCenter activities(scheduler);
    testing::RecordingSounds sounds;
    testing::FakeFileWatcher watcher;
    ClaudeAlertCenter center(ClaudeAlertCenter::Dependencies{hooks.eventsFile(),
                                                             scheduler,
                                                             scheduler,
                                                             activities,
                                                             notifications,
                                                             settings,
                                                             sounds,
                                                             watcher,
                                                             {},
                                                             false});
    center.start();
    std::ofstream(hooks.eventsFile(), std::ios::binary | std::ios::app) << bytes << '\n';
    center.readNew();
    scheduler.advance(ClaudeAlertCenter::kStaleAfter + 10);
    require(center.alerts().empty());  // stale alerts always go
    requireOnly(root, {"settings.json", "settings.json.vantrelle-backup", "claude-events.jsonl"});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const fs::path root = workFolder();
    fs::remove_all(root);
    fs::create_directories(root / ".claude");

    AppPaths paths;
    paths.home = root;
    paths.dataHome = root / "data";
    MapEnvironment environment;
    environment.set("VANTRELLE_CLAUDE_EVENTS", (root / "data/claude-events.jsonl").string());
    ClaudeHooks hooks(paths, environment);

    const std::string text = shaped(bytes);
    checkEdits(text, hooks.command());
    checkFiles(root, text, hooks);
    checkEvents(bytes, hooks, root);
    return 0;
}
