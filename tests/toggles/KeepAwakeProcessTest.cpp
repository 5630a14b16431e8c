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
    std::getline(stat, line);
    const auto close = line.rfind(')');
    return close != std::string::npos && close + 2 < line.size() && line[close + 2] != 'Z';
}

// The keep-awake child with real processes: a stand-in systemd-inhibit that holds the real sleep as
// its command, as the real one does, and tells the test its pid.
struct KeepAwakeProcessTest : testing::EventLoopTest {
    void SetUp() override {
        ::chmod(dir.write("bin/systemd-inhibit", "#!/bin/sh\n\"$5\" \"$6\" &\necho $! > \"$0.pid\"\nwait\n")
                    .c_str(),
                0755);
        const MapEnvironment environment({{"PATH", (dir / "bin").string() + ":/usr/bin:/bin"}});
        toggles = std::make_unique<QuickToggles>(
            QuickToggles::Dependencies{ToggleTable(DesktopTools::fromEnvironment(environment), false),
                                       launcher, runner, nullptr, queues, scheduler, scheduler, dir.path()});
    }

    testing::TempDir dir;
    QtProcessLauncher launcher;
    testing::FakeProcessRunner runner;
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    std::unique_ptr<QuickToggles> toggles;
};

TEST_F(KeepAwakeProcessTest, TheSecondTapEndsTheChildAndWhatItHolds) {
    toggles->perform(QuickToggle::keepAwake);
    pid_t held = 0;
    ASSERT_TRUE(testing::spinUntil(
        [&] { return static_cast<bool>(std::ifstream(dir / "bin/systemd-inhibit.pid") >> held); }));
    EXPECT_TRUE(isRunning(held));
    toggles->perform(QuickToggle::keepAwake);
    EXPECT_TRUE(testing::spinUntil([&] { return !toggles->isActive(QuickToggle::keepAwake); }));
    EXPECT_TRUE(testing::spinUntil([&] { return !isRunning(held); }));
}

}  // namespace
}  // namespace vantrelle
