#include <gtest/gtest.h>

#include "fakes/FakeProcessRunner.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "launcher/FavoriteApps.h"
#include "launcher/LauncherModel.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeProcessRunner;
using Source = LauncherModel::Source;

std::string entry(const std::string& name, const std::string& icon = "") {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + name + "\nIcon=" + icon + "\n";
}

class LauncherModelTest : public ::testing::Test {
protected:
    LauncherModelTest() {
        dir.write("apps/firefox.desktop", entry("Firefox", "firefox"));
        dir.write("apps/org.gnome.Nautilus.desktop", entry("Files", "org.gnome.Nautilus"));
        dir.write("apps/org/kde/konsole.desktop",
                  entry("Konsole", "utilities-terminal"));  // id org-kde-konsole
        dir.write("apps/gone.desktop", "[Desktop Entry]\nType=Application\nName=Gone\nHidden=true\n");
        runner.answer = [this](const FakeProcessRunner::Call& call) {
            if (call.program == "gsettings" && gnome) return ProcessResult{true, false, 0, *gnome, {}};
            return ProcessResult{call.program != "gsettings", false, 0, {}, {}};
        };
    }

    std::unique_ptr<LauncherModel> make(std::string desktop = "GNOME") {
        const std::vector<std::filesystem::path> folders{dir / "apps"};
        auto model = std::make_unique<LauncherModel>(
            LauncherModel::Deps{clock, queues, runner, clock, folders, dir / "appletsrc", std::move(desktop),
                                dir / "screentime", [this] { return today; }});
        connection = model->changed.connect([this] { ++changes; });
        model->start();
        clock.runUntilIdle();
        return model;
    }

    static std::vector<std::string> ids(const LauncherModel& model) {
        std::vector<std::string> out;
        for (const auto& app : model.apps()) out.push_back(app.id);
        return out;
    }

    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler clock{Date{1'800'000'000.0}};  // 2027-01-15 08:00 UTC
    InlineQueueFactory queues;
    FakeProcessRunner runner;
    std::optional<std::string> gnome;
    std::vector<AppUsage> today;
    Connection connection;
    int changes = 0;
};

TEST_F(LauncherModelTest, GnomeFavoritesInOrderWithNamesAndIconsSkippingUninstalledOnes) {
    gnome = "['org.gnome.Nautilus.desktop', 'missing.desktop', 'gone.desktop', 'firefox.desktop']\n";
    auto model = make();
    EXPECT_EQ(model->apps(), (std::vector<LauncherApp>{{"org.gnome.Nautilus", "Files", "org.gnome.Nautilus",
                                                        (dir / "apps/org.gnome.Nautilus.desktop").string()},
                                                       {"firefox", "Firefox", "firefox",
                                                        (dir / "apps/firefox.desktop").string()}}));
}

TEST_F(LauncherModelTest, WithoutADesktopFallsBackToTheMostUsedAppsThenToCommonOnes) {
    // No gsettings (the runner can't start it), no KDE file.
    dir.write("screentime/2027-01-14.json", R"({"firefox":{"name":"Firefox","seconds":600},
        "org.gnome.Nautilus":{"name":"Files","seconds":500},"missing":{"name":"X","seconds":9000}})");
    dir.write("screentime/2027-01-13.json", "not json");
    dir.write("screentime/2026-12-01.json",
              R"({"org-kde-konsole":{"name":"Konsole","seconds":99999}})");  // too old
    today = {{"org.gnome.Nautilus", "Files", 200, ""}};
    auto model = make("");
    EXPECT_EQ(model->source(), Source::mostUsed);
    EXPECT_EQ(ids(*model), (std::vector<std::string>{"org.gnome.Nautilus", "firefox"}));

    std::filesystem::remove_all(dir / "screentime");
    today.clear();
    clock.advance(LauncherModel::kPollInterval);
    EXPECT_EQ(model->source(), Source::defaults);
    EXPECT_EQ(ids(*model), (std::vector<std::string>{"firefox", "org.gnome.Nautilus"}));

    std::filesystem::remove_all(dir / "apps");
    clock.advance(LauncherModel::kPollInterval);
    EXPECT_EQ(model->source(), Source::none);
    EXPECT_TRUE(model->apps().empty());
}

TEST_F(LauncherModelTest, LaunchesThroughGioElseGtkLaunchAndOnlyAppsOfTheList) {
    gnome = "['firefox.desktop']";
    auto model = make();
    runner.calls.clear();
    ASSERT_TRUE(model->launch("firefox"));
    ASSERT_EQ(runner.calls.size(), 1U);
    EXPECT_EQ(runner.calls[0].arguments,
              (std::vector<std::string>{"launch", (dir / "apps/firefox.desktop").string()}))
        << "gio";

    runner.calls.clear();
    runner.answer = [](const FakeProcessRunner::Call& call) {
        return ProcessResult{true, false, call.program == "gio" ? 2 : 0, {}, {}};  // gio fails
    };
    ASSERT_TRUE(model->launch("firefox"));
    ASSERT_EQ(runner.calls.size(), 2U);
    EXPECT_EQ(runner.calls[1].arguments, (std::vector<std::string>{"firefox"})) << "gtk-launch takes the id";

    runner.calls.clear();
    EXPECT_FALSE(model->launch("../../bin/evil"));
    EXPECT_TRUE(runner.calls.empty());
}

using Ids = std::vector<std::string>;

TEST(FavoriteApps, ReadsGnomeFavoritesAndSkipsWhatIsNotADesktopFile) {
    const struct {
        const char* name;
        std::string text;
        Ids ids;
    } rows[] = {
        {"two apps",
         "['firefox.desktop', 'org.gnome.Nautilus.desktop']\n",
         {"firefox", "org.gnome.Nautilus"}},
        {"empty typed", "@as []\n", {}},
        {"double quotes and escapes", R"(["it\"s.desktop", 'a\'b.desktop'])", {"it\"s", "a'b"}},
        {"repeats once", "['a.desktop', 'a.desktop', 'b.desktop']", {"a", "b"}},
        {"not desktop files", "['a.txt', '.desktop', '../x.desktop', 'ok.desktop']", {"ok"}},
        {"cut off", "['a.desktop', 'b.desk", {"a"}},
        {"garbage", "No such schema “org.gnome.shell”", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(parseGnomeFavorites(row.text), row.ids);
    }
}

TEST(FavoriteApps, ReadsTheFirstKdeTaskManagerWithLaunchers) {
    const struct {
        const char* name;
        std::string text;
        Ids ids;
    } rows[] = {
        {"one panel",
         "[Containments][2][Applets][5][Configuration][General]\r\n"
         "launchers=applications:systemsettings.desktop,preferred://filemanager,"
         "file:///home/ada/app.desktop,applications:org.kde.konsole.desktop\r\n",
         {"systemsettings", "org.kde.konsole"}},
        {"empty first, second wins",
         "[A]\nlaunchers=\n[B]\nlaunchers=applications:firefox.desktop\n[C]\nlaunchers=applications:x."
         "desktop\n",
         {"firefox"}},
        {"odd items", "launchers=applications:,applications:a/b.desktop,,applications:ok.desktop", {"ok"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(parseKdeLaunchers(row.text), row.ids);
    }
}

}  // namespace
}  // namespace vantrelle
