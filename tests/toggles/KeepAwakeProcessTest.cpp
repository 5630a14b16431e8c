#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "TestApplication.h"
#include "fakes/FakeProcessRunner.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "toggles/QtProcessLauncher.h"
#include "toggles/QuickToggles.h"

namespace vantrelle {
namespace {

// Running, as opposed to gone or a zombie waiting to be reaped.
bool isRunning(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    if (!std::getline(stat, line)) return false;
    const auto close = line.rfind(')');
    return close != std::string::npos && close + 2 < line.size() && line[close + 2] != 'Z';
}

pid_t readPid(const std::filesystem::path& file) {
    std::ifstream in(file);
    pid_t pid = 0;
    in >> pid;
    return pid;
}

// The keep-awake child with real processes: a stand-in systemd-inhibit that holds the real sleep as
// its command, as the real one does.
class KeepAwakeProcessTest : public testing::EventLoopTest {
protected:
    void SetUp() override {
        const auto script = dir.write("bin/systemd-inhibit",
                                      "#!/bin/sh\necho \"$*\" > \"$(dirname \"$0\")/../args\"\n"
                                      "\"$5\" \"$6\" &\necho $! > \"$(dirname \"$0\")/../held.pid\"\nwait\n");
        ::chmod(script.c_str(), 0755);
        const MapEnvironment environment({{"PATH", (dir / "bin").string() + ":/usr/bin:/bin"}});
        toggles = std::make_unique<QuickToggles>(
            QuickToggles::Dependencies{ToggleTable(DesktopTools::fromEnvironment(environment), false),
                                       launcher, runner, nullptr, queues, scheduler, scheduler, dir.path()});
    }

    pid_t startHeld() {
        std::filesystem::remove(dir / "held.pid");
        toggles->perform(QuickToggle::keepAwake);
        EXPECT_TRUE(toggles->isActive(QuickToggle::keepAwake));
        EXPECT_TRUE(testing::spinUntil([&] { return readPid(dir / "held.pid") > 0; }));
        return readPid(dir / "held.pid");
    }

    testing::TempDir dir;
    QtProcessLauncher launcher;
    testing::FakeProcessRunner runner;
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    std::unique_ptr<QuickToggles> toggles;
};

TEST_F(KeepAwakeProcessTest, SecondTapAndQuitEachEndTheChildAndWhatItHolds) {
    const pid_t held = startHeld();
    ASSERT_GT(held, 0);
    EXPECT_TRUE(isRunning(held));
    EXPECT_NE(dir.read("args").find("--what=idle:sleep"), std::string::npos);
    toggles->perform(QuickToggle::keepAwake);
    EXPECT_TRUE(testing::spinUntil([&] { return !toggles->isActive(QuickToggle::keepAwake); }));
    EXPECT_TRUE(testing::spinUntil([&] { return !isRunning(held); }));

    const pid_t next = startHeld();
    ASSERT_GT(next, 0);
    toggles.reset();
    EXPECT_TRUE(testing::spinUntil([&] { return !isRunning(next); }));
}

}  // namespace
}  // namespace vantrelle
