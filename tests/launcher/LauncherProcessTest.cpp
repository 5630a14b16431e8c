#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "QtProcessRunner.h"
#include "fakes/TempDir.h"
#include "launcher/LauncherModel.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

// The real process runner against stand-in `gsettings` and `gio` on a temporary PATH.
class LauncherProcessTest : public ::testing::Test {
protected:
    LauncherProcessTest() {
        if (const char* path = std::getenv("PATH")) m_path = path;
        ::setenv("PATH", (dir.path() / "bin").c_str(), 1);
        dir.write("apps/firefox.desktop", "[Desktop Entry]\nType=Application\nName=Firefox\nExec=firefox\n");
    }
    ~LauncherProcessTest() override { ::setenv("PATH", m_path.c_str(), 1); }

    void tool(const std::string& name, const std::string& script) {
        const auto file = dir.write("bin/" + name, "#!/bin/sh\n" + script + "\n");
        ::chmod(file.c_str(), 0755);
    }

    std::unique_ptr<LauncherModel> make() {
        const std::vector<std::filesystem::path> folders{dir / "apps"};
        auto model = std::make_unique<LauncherModel>(LauncherModel::Deps{
            clock, queues, runner, clock, folders, dir / "appletsrc", "GNOME", dir / "screentime", {}});
        model->start();
        clock.runUntilIdle();
        return model;
    }

    testing::TempDir dir;
    std::string m_path;
    VirtualScheduler clock;
    InlineQueueFactory queues;
    QtProcessRunner runner;
};

TEST_F(LauncherProcessTest, ReadsFavoritesFromGsettingsAndFallsBackFromAFailingGioToGtkLaunch) {
    tool("gsettings",
         "[ \"$*\" = 'get org.gnome.shell favorite-apps' ] && echo \"['firefox.desktop']\" || exit 1");
    tool("gio", "echo \"$@\" > \"" + (dir / "gio-args").string() + "\"; exit 2");
    tool("gtk-launch", "echo \"$@\" > \"" + (dir / "gtk-args").string() + "\"");
    auto model = make();
    ASSERT_EQ(model->source(), LauncherModel::Source::gnome);
    ASSERT_TRUE(model->launch("firefox"));
    EXPECT_EQ(dir.read("gio-args"), "launch " + (dir / "apps/firefox.desktop").string() + "\n");
    EXPECT_EQ(dir.read("gtk-args"), "firefox\n");
}

}  // namespace
}  // namespace vantrelle
