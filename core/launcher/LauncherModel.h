#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "launcher/LauncherApp.h"
#include "monitors/AppUsage.h"
#include "platform/Clock.h"
#include "platform/ProcessRunner.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"

namespace vantrelle {

// The launcher's applications: the desktop's favourites (GNOME's favorite-apps, KDE's task manager
// launchers), else the most used applications by screen time, else a few common ones that are
// installed. Looked at again on a slow poll, so pinning an app on the desktop shows here a minute later.
// Reading runs on the "launcher" queue (gsettings is a process); the list is published on the main
// thread. Main thread only.
class LauncherModel {
public:
    static constexpr double kPollInterval = 60.0;
    static constexpr double kGsettingsTimeout = 5.0;
    static constexpr double kLaunchTimeout = 15.0;
    static constexpr std::size_t kMaxApps = 12;
    static constexpr int kUsageDays = 14;
    static constexpr std::string_view kEmptyText = "No applications found";

    enum class Source { none, gnome, kde, mostUsed, defaults };

    struct Deps {
        Scheduler& scheduler;
        QueueFactory& queues;
        ProcessRunner& runner;
        const Clock& clock;
        std::vector<std::filesystem::path> applicationFolders;
        std::filesystem::path kdeConfig;  // "plasma-org.kde.plasma.desktop-appletsrc" in the config home
        std::string currentDesktop;       // $XDG_CURRENT_DESKTOP, e.g. "ubuntu:GNOME" or "KDE"
        std::filesystem::path screenTimeFolder;
        std::function<std::vector<AppUsage>()> todayUsage;  // called on the main thread; may be empty
    };

    explicit LauncherModel(Deps deps);
    ~LauncherModel();
    LauncherModel(const LauncherModel&) = delete;
    LauncherModel& operator=(const LauncherModel&) = delete;

    // Reads the list now and then on the poll. Once only.
    void start();
    // Reads the list again unless a read is already under way.
    void refresh();

    [[nodiscard]] const std::vector<LauncherApp>& apps() const { return m_apps; }
    [[nodiscard]] Source source() const { return m_source; }

    // Starts an application of the list the desktop's way: `gio launch <file>`, else `gtk-launch <id>`.
    // False (and nothing run) for an id that isn't in the list.
    bool launch(const std::string& id);

    Signal<> changed;

    // Common applications for a machine with neither favourites nor screen time, in order of preference.
    [[nodiscard]] static const std::vector<std::string>& defaultCandidates();
    [[nodiscard]] static std::string_view sourceName(Source source);

    struct Found {
        Source source = Source::none;
        std::vector<LauncherApp> apps;
    };
    // The reading itself, off the main thread: the first source that gives any installed application.
    [[nodiscard]] static Found find(const Deps& deps, const std::vector<AppUsage>& today, Date now);

private:
    void publish(Found found);

    Deps m_deps;
    std::unique_ptr<SerialQueue> m_reader;
    std::unique_ptr<SerialQueue> m_starter;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::vector<LauncherApp> m_apps;
    Source m_source = Source::none;
    bool m_reading = false;
    bool m_started = false;
    RepeatingTimer m_poll;
};

}  // namespace vantrelle
