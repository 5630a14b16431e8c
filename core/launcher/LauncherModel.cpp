#include "launcher/LauncherModel.h"

#include <algorithm>
#include <cctype>

#include "launcher/DesktopFiles.h"
#include "launcher/FavoriteApps.h"
#include "launcher/MostUsedApps.h"
#include "support/DebugLog.h"
#include "support/ReadFile.h"

namespace vantrelle {
namespace {

bool isKde(std::string desktop) {
    std::transform(desktop.begin(), desktop.end(), desktop.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return desktop.find("KDE") != std::string::npos;
}

std::vector<LauncherApp> installed(const DesktopFiles& files, const std::vector<std::string>& ids) {
    std::vector<LauncherApp> apps;
    for (const auto& id : ids) {
        if (apps.size() >= LauncherModel::kMaxApps) break;
        if (auto app = files.find(id)) apps.push_back(std::move(*app));
    }
    return apps;
}

std::vector<std::string> gnomeFavorites(ProcessRunner& runner) {
    const ProcessResult result = runner.run("gsettings", {"get", "org.gnome.shell", "favorite-apps"},
                                            LauncherModel::kGsettingsTimeout);
    if (!result.succeeded()) return {};  // no gsettings, or no GNOME Shell schema: not a GNOME desktop
    return parseGnomeFavorites(result.standardOutput);
}

std::vector<std::string> kdeLaunchers(const std::filesystem::path& config) {
    const auto text = readWholeFile(config);
    return text ? parseKdeLaunchers(*text) : std::vector<std::string>{};
}

}  // namespace

LauncherModel::LauncherModel(Deps deps)
    : m_deps(std::move(deps)),
      m_reader(m_deps.queues.make("launcher")),
      m_starter(m_deps.queues.make("launch")) {}

LauncherModel::~LauncherModel() {
    *m_alive = false;
    m_poll.cancel();
    // Finishes queued work while the members it touches still exist.
    m_reader.reset();
    m_starter.reset();
}

const std::vector<std::string>& LauncherModel::defaultCandidates() {
    static const std::vector<std::string> kCandidates{"firefox",
                                                      "org.mozilla.firefox",
                                                      "firefox-esr",
                                                      "chromium",
                                                      "google-chrome",
                                                      "org.gnome.Nautilus",
                                                      "org.kde.dolphin",
                                                      "thunar",
                                                      "pcmanfm",
                                                      "org.gnome.Terminal",
                                                      "org.gnome.Console",
                                                      "org.kde.konsole",
                                                      "xfce4-terminal",
                                                      "code",
                                                      "org.gnome.TextEditor",
                                                      "org.kde.kate",
                                                      "thunderbird",
                                                      "org.mozilla.Thunderbird",
                                                      "org.gnome.Settings",
                                                      "systemsettings"};
    return kCandidates;
}

std::string_view LauncherModel::sourceName(Source source) {
    switch (source) {
        case Source::none:
            return "nothing";
        case Source::gnome:
            return "GNOME favourites";
        case Source::kde:
            return "KDE launchers";
        case Source::mostUsed:
            return "the most used applications";
        case Source::defaults:
            return "common applications";
    }
    return "nothing";
}

LauncherModel::Found LauncherModel::find(const Deps& deps, const std::vector<AppUsage>& today, Date now) {
    const DesktopFiles files(deps.applicationFolders);
    const bool kde = isKde(deps.currentDesktop);
    for (const Source source : {kde ? Source::kde : Source::gnome, kde ? Source::gnome : Source::kde}) {
        const auto ids = source == Source::gnome ? gnomeFavorites(deps.runner) : kdeLaunchers(deps.kdeConfig);
        if (auto apps = installed(files, ids); !apps.empty()) return {source, std::move(apps)};
    }
    if (auto apps = installed(files, mostUsedApps(deps.screenTimeFolder, now, kUsageDays, today));
        !apps.empty())
        return {Source::mostUsed, std::move(apps)};
    // Several candidates may be the same kind of program; a handful is enough for a start.
    auto apps = installed(files, defaultCandidates());
    if (apps.size() > 6) apps.resize(6);
    return {apps.empty() ? Source::none : Source::defaults, std::move(apps)};
}

void LauncherModel::start() {
    if (m_started) return;
    m_started = true;
    refresh();
    m_poll = m_deps.scheduler.repeat(kPollInterval, [this] { refresh(); });
}

void LauncherModel::refresh() {
    if (m_reading) return;  // a slow gsettings must not pile up reads behind it
    m_reading = true;
    std::vector<AppUsage> today = m_deps.todayUsage ? m_deps.todayUsage() : std::vector<AppUsage>{};
    m_reader->async(
        [alive = std::weak_ptr<bool>(m_alive), this, today = std::move(today), now = m_deps.clock.now()] {
            Found found = find(m_deps, today, now);
            m_deps.scheduler.post([alive, this, found = std::move(found)]() mutable {
                if (!alive.expired()) publish(std::move(found));
            });
        });
}

void LauncherModel::publish(Found found) {
    m_reading = false;
    if (found.source == m_source && found.apps == m_apps) return;
    if (found.source != m_source) {
        DebugLog::write([&] {
            return "launcher: " + std::to_string(found.apps.size()) + " applications from " +
                   std::string(sourceName(found.source));
        });
    }
    m_source = found.source;
    m_apps = std::move(found.apps);
    changed.emit();
}

bool LauncherModel::launch(const std::string& id) {
    const auto it =
        std::find_if(m_apps.begin(), m_apps.end(), [&](const LauncherApp& app) { return app.id == id; });
    if (it == m_apps.end()) {
        DebugLog::write([&] { return "launcher: no application " + id + " in the list"; });
        return false;
    }
    DebugLog::write([&] { return "launcher: start " + id; });
    m_starter->async([this, app = *it] {
        if (m_deps.runner.run("gio", {"launch", app.file}, kLaunchTimeout).succeeded()) return;
        const ProcessResult result = m_deps.runner.run("gtk-launch", {app.id}, kLaunchTimeout);
        if (!result.succeeded()) {
            DebugLog::write([&] {
                return "launcher: could not start " + app.id + " (gio and gtk-launch failed: " +
                       (result.launched ? "exit " + std::to_string(result.exitCode)
                                        : std::string("not found")) +
                       ")";
            });
        }
    });
    return true;
}

}  // namespace vantrelle
