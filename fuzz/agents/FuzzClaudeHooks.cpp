// Arbitrary bytes as Claude Code hook payloads in the events file, and as Claude Code's settings file.
// Nothing may crash, and nothing may be written but the settings file, its backup and the events file.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "agents/ClaudeAlertCenter.h"
#include "agents/ClaudeHooks.h"
#include "fakes/FakeFileWatcher.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeOverlayPorts.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace {

using namespace vantrelle;
namespace fs = std::filesystem;

const fs::path& workFolder() {
    static const fs::path folder = [] {
        std::string pattern = (fs::temp_directory_path() / "vantrelle-fuzz-XXXXXX").string();
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
        if (!known) std::abort();  // a write outside the files we own
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const fs::path root = workFolder();
    fs::remove_all(root);
    fs::create_directories(root / ".claude");

    // As a settings file: read, install, check, uninstall.
    std::ofstream(root / ".claude/settings.json", std::ios::binary) << bytes;
    AppPaths paths;
    paths.home = root;
    paths.dataHome = root / "data";
    MapEnvironment environment;
    environment.set("VANTRELLE_CLAUDE_EVENTS", (root / "data/claude-events.jsonl").string());
    ClaudeHooks hooks(paths, environment);
    (void)hooks.isInstalled();
    if (!hooks.install() && !hooks.isInstalled()) std::abort();  // an install that succeeded must be found
    (void)hooks.uninstall();
    requireOnly(root, {"settings.json", "settings.json.vantrelle-backup"});

    // As appended hook payloads.
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
    if (!center.alerts().empty()) std::abort();  // stale alerts always go
    requireOnly(root, {"settings.json", "settings.json.vantrelle-backup", "claude-events.jsonl"});
    return 0;
}
