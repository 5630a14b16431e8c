#include <gtest/gtest.h>
#include <sys/stat.h>

#include "FakeProcessLauncher.h"
#include "fakes/FakeProcessRunner.h"
#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "toggles/QuickToggles.h"

namespace vantrelle {
namespace {

using testing::FakeProcessLauncher;
using testing::FakeProcessRunner;
using Args = std::vector<std::string>;

// A folder of stand-in executables to put on PATH.
class StandIns {
public:
    explicit StandIns(std::initializer_list<std::string_view> programs) {
        for (auto program : programs) add(program);
    }
    void add(std::string_view program) const {
        ::chmod(m_dir.write(program, "#!/bin/sh\nexit 0\n").c_str(), 0755);
    }
    [[nodiscard]] std::string bin(std::string_view program) const { return (m_dir / program).string(); }
    [[nodiscard]] DesktopTools tools(const std::string& desktop) const {
        return DesktopTools::fromEnvironment(MapEnvironment(
            {{"PATH", "relative:" + m_dir.path().string()}, {"XDG_CURRENT_DESKTOP", desktop}}));
    }

private:
    testing::TempDir m_dir;
};

struct Fixture {
    explicit Fixture(ToggleTable table, RemovableDisks* disks = nullptr)
        : toggles({std::move(table), launcher, runner, disks, queues, scheduler, scheduler, "/home/u"}) {}
    FakeProcessLauncher launcher;
    FakeProcessRunner runner;
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    QuickToggles toggles;
};

// Words split at single spaces.
Args words(const std::string& text) {
    Args out;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = std::min(text.find(' ', start), text.size());
        out.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return out;
}

TEST(QuickTogglesTest, EachDesktopRunsItsOwnCommandLines) {
    using enum QuickToggle;
    const std::vector<std::string_view> gnomeKde{"gsettings", "plasma-apply-colorscheme"};
    const std::vector<std::string_view> shots{"gnome-screenshot", "spectacle"};
    const struct {
        const char* name;
        std::string desktop;
        std::vector<std::string_view> programs;
        QuickToggle toggle;
        std::string command;  // the program in the stand-in folder and its arguments; empty: hidden here
    } rows[] = {
        {"gnome dark", "ubuntu:GNOME", gnomeKde, darkMode,
         "gsettings set org.gnome.desktop.interface color-scheme prefer-dark"},
        {"kde dark", "KDE", gnomeKde, darkMode, "plasma-apply-colorscheme BreezeDark"},
        {"no dark tool", "GNOME", {"wpctl"}, darkMode, ""},
        {"pipewire mute", "GNOME", {"wpctl", "pactl"}, mute, "wpctl set-mute @DEFAULT_AUDIO_SINK@ toggle"},
        {"pulse mute", "GNOME", {"pactl"}, mute, "pactl set-sink-mute @DEFAULT_SINK@ toggle"},
        {"gnome shot", "GNOME", shots, screenshot, "gnome-screenshot --area --clipboard"},
        {"kde shot", "KDE", shots, screenshot, "spectacle --background --nonotify --region --clipboard"},
        {"import without xclip", "XFCE", {"import", "sh"}, screenshot, ""},
        {"lock", "XFCE", {"loginctl", "xset"}, lockScreen, "loginctl lock-session"},
        {"lock falls back", "XFCE", {"xset"}, lockScreen, "xset dpms force off"},
        {"trash", "GNOME", {"gio"}, emptyTrash, "gio trash --empty"},
        {"no desktop icons", "GNOME", {"gsettings"}, hideDesktopIcons, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StandIns bin({});
        for (auto program : row.programs) bin.add(program);
        Fixture f(ToggleTable(bin.tools(row.desktop), false));
        const Args command = words(row.command);
        EXPECT_EQ(f.toggles.table().missingReason(row.toggle).has_value(), command.empty());
        f.toggles.perform(row.toggle);
        ASSERT_EQ(f.launcher.detached.size(), command.empty() ? 0U : 1U);
        if (command.empty()) continue;
        EXPECT_EQ(f.launcher.detached[0].program, bin.bin(command[0]));
        EXPECT_EQ(f.launcher.detached[0].arguments, Args(command.begin() + 1, command.end()));
    }
}

TEST(QuickTogglesTest, StateTogglesFlipAtOnceAndDarkModeThenTakesTheDesktopsWord) {
    StandIns bin({"gsettings"});
    Fixture f(ToggleTable(bin.tools("GNOME"), false));
    f.toggles.perform(QuickToggle::showHiddenFiles);
    EXPECT_TRUE(f.toggles.isActive(QuickToggle::showHiddenFiles));
    f.toggles.perform(QuickToggle::showHiddenFiles);
    EXPECT_FALSE(f.toggles.isActive(QuickToggle::showHiddenFiles));
    ASSERT_EQ(f.launcher.detached.size(), 4U);
    EXPECT_EQ(f.launcher.detached[1].arguments,
              (Args{"set", "org.gtk.gtk4.Settings.FileChooser", "show-hidden", "true"}));
    EXPECT_EQ(f.launcher.detached[2].arguments,
              (Args{"set", "org.gtk.Settings.FileChooser", "show-hidden", "false"}));

    f.runner.answer = [](const FakeProcessRunner::Call&) {
        return ProcessResult{true, false, 0, "'default'", {}};
    };
    f.toggles.perform(QuickToggle::darkMode);
    EXPECT_TRUE(f.toggles.isActive(QuickToggle::darkMode));
    f.scheduler.advance(QuickToggles::kRecheckDelay);  // the desktop refused the switch
    EXPECT_FALSE(f.toggles.isActive(QuickToggle::darkMode));
}

TEST(QuickTogglesTest, ScreenshotsCollapseThePanelAndNameTheFile) {
    StandIns bin({"gnome-screenshot"});
    Fixture f(ToggleTable(bin.tools("GNOME"), false));
    int collapsed = 0;
    f.toggles.perform(QuickToggle::screenshotToFile, [&] { ++collapsed; });
    EXPECT_EQ(collapsed, 1);
    ASSERT_EQ(f.launcher.detached.size(), 1U);
    const std::string file = ToggleTable::screenshotFile("/home/u", f.scheduler.now()).string();
    EXPECT_EQ(f.launcher.detached[0].arguments, (Args{"--area", "--file=" + file}));
    EXPECT_TRUE(file.starts_with("/home/u/Desktop/Screenshot ") && file.ends_with(".png")) << file;
}

TEST(QuickTogglesTest, KeepAwakeChildEndsOnSecondTapAndAtQuit) {
    StandIns bin({"systemd-inhibit", "sleep"});
    auto f = std::make_unique<Fixture>(ToggleTable(bin.tools("GNOME"), false));
    f->toggles.perform(QuickToggle::keepAwake);
    ASSERT_EQ(f->launcher.children.size(), 1U);
    auto first = f->launcher.children[0];
    EXPECT_EQ(first->launch.program, bin.bin("systemd-inhibit"));
    EXPECT_EQ(first->launch.arguments, (Args{"--what=idle:sleep", "--who=Vantrelle", "--why=Keep awake is on",
                                             "--mode=block", bin.bin("sleep"), "infinity"}));
    EXPECT_TRUE(f->toggles.isActive(QuickToggle::keepAwake));

    // The second tap asks the child to end; the flag clears only when it has.
    f->toggles.perform(QuickToggle::keepAwake);
    EXPECT_TRUE(first->terminateAsked);
    EXPECT_TRUE(f->toggles.isActive(QuickToggle::keepAwake));
    FakeProcessLauncher::exit(*first);
    EXPECT_FALSE(f->toggles.isActive(QuickToggle::keepAwake));

    // Something else ends the next child: the flag follows. A third one is ended at quit.
    f->toggles.perform(QuickToggle::keepAwake);
    FakeProcessLauncher::exit(*f->launcher.children[1]);
    EXPECT_FALSE(f->toggles.isActive(QuickToggle::keepAwake));
    f->toggles.perform(QuickToggle::keepAwake);
    auto last = f->launcher.children[2];
    f.reset();
    EXPECT_TRUE(last->terminateAsked);
}

TEST(QuickTogglesTest, ALaunchFailureIsLoggedAndLeavesKeepAwakeOff) {
    testing::LogCapture log;
    StandIns bin({"systemd-inhibit", "sleep"});
    Fixture f(ToggleTable(bin.tools("GNOME"), false));
    f.launcher.failWith = "No such file";
    f.toggles.perform(QuickToggle::keepAwake);
    EXPECT_FALSE(f.toggles.isActive(QuickToggle::keepAwake));
    EXPECT_NE(log.text().find("No such file"), std::string::npos);
}

TEST(QuickTogglesTest, StatesAreReadFromTheDesktop) {
    using enum QuickToggle;
    const struct {
        const char* name;
        std::string desktop;
        std::string_view program;
        QuickToggle toggle;
        int exitCode;
        std::string reply;
        bool expected;
    } rows[] = {
        {"gnome dark", "GNOME", "gsettings", darkMode, 0, "'prefer-dark'\n", true},
        {"gnome light", "GNOME", "gsettings", darkMode, 0, "'default'\n", false},
        {"kde dark", "KDE", "plasma-apply-colorscheme", darkMode, 0,
         " * BreezeClassic\n * BreezeDark (current color scheme)\n", true},
        {"wpctl muted", "GNOME", "wpctl", mute, 0, "Volume: 0.40 [MUTED]\n", true},
        {"pactl muted", "GNOME", "pactl", mute, 0, "Mute: yes\n", true},
        {"hidden shown", "GNOME", "gsettings", showHiddenFiles, 0, "true\n", true},
        {"garbage reply", "GNOME", "wpctl", mute, 0, "\x01\xff nonsense", false},
        {"failed reader", "GNOME", "gsettings", darkMode, 1, "'prefer-dark'", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StandIns bin({row.program});
        FakeProcessLauncher launcher;
        FakeProcessRunner runner;  // answers the first reading, made as the toggles start
        runner.answer = [&](const FakeProcessRunner::Call&) {
            return ProcessResult{true, false, row.exitCode, row.reply, {}};
        };
        InlineQueueFactory queues;
        VirtualScheduler scheduler;
        QuickToggles toggles({ToggleTable(bin.tools(row.desktop), false), launcher, runner, nullptr, queues,
                              scheduler, scheduler, "/home/u"});
        scheduler.runUntilIdle();
        EXPECT_EQ(toggles.isActive(row.toggle), row.expected);
    }
}

struct FakeDisks final : RemovableDisks {
    bool available() override { return true; }
    EjectResult ejectAll() override {
        ++ejects;
        return result;
    }
    EjectResult result;
    int ejects = 0;
};

TEST(QuickTogglesTest, EjectGoesToTheDiskServiceAndLogsWhatWentWrong) {
    const struct {
        const char* name;
        EjectResult result;
        bool logged;
    } rows[] = {
        {"a busy filesystem", {0, {"/dev/sdb1 busy"}}, true},
        {"no removable drives", {}, true},
        {"all went", {2, {}}, false},
    };
    StandIns bin({});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        testing::LogCapture log;
        FakeDisks disks;
        disks.result = row.result;
        Fixture f(ToggleTable(bin.tools("GNOME"), true), &disks);
        f.toggles.perform(QuickToggle::ejectDisks);
        EXPECT_EQ(disks.ejects, 1);
        EXPECT_EQ(log.text().find("toggles:") != std::string::npos, row.logged);
    }
    EXPECT_FALSE(ToggleTable(bin.tools("GNOME"), false).available(QuickToggle::ejectDisks));
}

TEST(QuickTogglesTest, PathEntriesThatAreNotFoldersOrNotExecutableFindNothing) {
    testing::TempDir dir;
    dir.write("gio", "#!/bin/sh\n");  // not executable
    const auto tools =
        DesktopTools::fromEnvironment(MapEnvironment({{"PATH", ":" + dir.path().string() + "::"}}));
    EXPECT_FALSE(tools.has("gio"));
    EXPECT_FALSE(tools.has("../gio"));
    EXPECT_FALSE(DesktopTools::fromEnvironment(MapEnvironment()).has("sh"));
    EXPECT_EQ(DesktopTools::desktopFrom("kdeish"), DesktopTools::Desktop::other);
}

}  // namespace
}  // namespace vantrelle
