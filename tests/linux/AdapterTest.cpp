#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <atomic>
#include <map>
#include <thread>

#include "CameraProbe.h"
#include "CanberraSoundPlayer.h"
#include "QtMainScheduler.h"
#include "QtProcessRunner.h"
#include "TestApplication.h"
#include "ThreadQueue.h"
#include "XdgAutostart.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using testing::TempDir;

// The real main queue needs an event loop; this turns it until `done` or a generous deadline.
template <typename Done>
bool spinUntil(Done done, int limitMs = 5000) {
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < limitMs) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return done();
}

class QtAdapters : public ::testing::Test {
protected:
    static void SetUpTestSuite() { testing::testApplication(); }
};

TEST_F(QtAdapters, MainSchedulerRunsPostedAndDueWorkAndHonoursCancellation) {
    QtMainScheduler scheduler;
    std::vector<int> ran;
    scheduler.post([&] { ran.push_back(1); });
    WorkItem cancelled = scheduler.schedule(0.001, [&] { ran.push_back(99); });
    cancelled.cancel();
    scheduler.after(0.01, [&] { ran.push_back(2); });
    ASSERT_TRUE(spinUntil([&] { return ran.size() >= 2; }));
    spinUntil([] { return false; }, 50);
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
}

TEST_F(QtAdapters, MainSchedulerTakesPostsFromOtherThreads) {
    QtMainScheduler scheduler;
    std::atomic<bool> onMain{false};
    const auto mainThread = std::this_thread::get_id();
    std::thread worker([&] { scheduler.post([&] { onMain = std::this_thread::get_id() == mainThread; }); });
    worker.join();
    EXPECT_TRUE(spinUntil([&] { return onMain.load(); }));
}

TEST_F(QtAdapters, RepeatingTimerStopsWhenDropped) {
    QtMainScheduler scheduler;
    int ticks = 0;
    auto timer = std::make_optional(scheduler.repeat(0.005, [&] { ++ticks; }));
    ASSERT_TRUE(spinUntil([&] { return ticks >= 3; }));
    timer.reset();
    const int seen = ticks;
    spinUntil([] { return false; }, 60);
    EXPECT_EQ(ticks, seen);
}

TEST(ThreadQueue, RunsWorkInOrderOffTheCallingThreadAndFinishesItOnDestruction) {
    ThreadQueueFactory factory;
    std::vector<int> ran;
    std::thread::id worker;
    {
        auto queue = factory.make("aiusage");
        EXPECT_EQ(queue->label(), "com.quorvane.vantrelle.aiusage");
        for (int i = 0; i < 100; ++i)
            queue->async([&, i] {
                ran.push_back(i);
                worker = std::this_thread::get_id();
            });
    }
    ASSERT_EQ(ran.size(), 100u);
    EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST(ProcessRunner, ReportsOutputExitCodesMissingProgramsAndTimeouts) {
    QtProcessRunner runner;
    auto ok = runner.run("/bin/sh", {"-c", "printf 'hello'; printf 'oops' >&2; exit 3"}, 5);
    EXPECT_TRUE(ok.launched);
    EXPECT_EQ(ok.exitCode, 3);
    EXPECT_EQ(ok.standardOutput, "hello");
    EXPECT_EQ(ok.standardError, "oops");
    EXPECT_FALSE(ok.succeeded());

    EXPECT_FALSE(runner.run("/nonexistent/tool", {}, 1).launched);

    auto slow = runner.run("/bin/sh", {"-c", "sleep 5"}, 0.2);
    EXPECT_TRUE(slow.timedOut);
}

TEST(CameraProbe, FindsAVideoDeviceHeldByAnotherProcess) {
    TempDir dir;
    std::filesystem::create_directories(dir / "dev");
    std::filesystem::create_directories(dir / "proc/4242/fd");
    std::filesystem::create_directories(dir / "proc/self-not-a-pid/fd");
    std::filesystem::create_symlink("/dev/null", dir / "proc/4242/fd/0");
    CameraProbe probe(dir / "proc", dir / "dev");
    EXPECT_FALSE(probe.anyCameraRunning()) << "no camera device at all";

    dir.write("dev/video0", "");
    EXPECT_FALSE(probe.anyCameraRunning()) << "a camera nobody holds";
    std::filesystem::create_symlink("/dev/video0", dir / "proc/4242/fd/7");
    EXPECT_TRUE(probe.anyCameraRunning());

    EXPECT_FALSE(CameraProbe(dir / "missing", dir / "dev").anyCameraRunning());
}

TEST(XdgAutostart, WritesAQuotedEntryAndRemovesIt) {
    TempDir dir;
    XdgAutostart item(dir / "autostart/vantrelle.desktop", "/opt/My Apps/vantrelle");
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.setEnabled(true));
    EXPECT_TRUE(item.isEnabled());
    const auto text = dir.read("autostart/vantrelle.desktop");
    EXPECT_NE(text.find("[Desktop Entry]\n"), std::string::npos);
    EXPECT_NE(text.find("Exec=\"/opt/My Apps/vantrelle\"\n"), std::string::npos);
    EXPECT_TRUE(item.setEnabled(false));
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.setEnabled(false)) << "removing what is not there is fine";
}

TEST(CanberraSoundPlayer, MapsTheProgramsSoundsToThemeEvents) {
    EXPECT_STREQ(CanberraSoundPlayer::themeSound("Glass"), "message-new-instant");
    EXPECT_STREQ(CanberraSoundPlayer::themeSound("Ping"), "message");
    EXPECT_STREQ(CanberraSoundPlayer::themeSound("Tink"), "dialog-information");
    CanberraSoundPlayer player;
    player.play("Glass");  // no sound server here: must stay quiet, not fail
}

}  // namespace
}  // namespace vantrelle

#include <fstream>

#include "InotifyFileWatcher.h"

namespace vantrelle {
namespace {

TEST_F(QtAdapters, InotifyWakesOnAppendsAndTruncationAndStopsWhenDropped) {
    testing::TempDir dir;
    const auto file = dir.write("events.jsonl", "");
    InotifyFileWatcher watcher;
    int wakes = 0;
    auto watch = watcher.watchFile(file, [&] { ++wakes; });
    ASSERT_NE(watch, nullptr);

    std::ofstream(file, std::ios::app) << "{}\n";
    ASSERT_TRUE(spinUntil([&] { return wakes >= 1; }));
    const int afterAppend = wakes;
    std::ofstream(file, std::ios::trunc).flush();
    ASSERT_TRUE(spinUntil([&] { return wakes > afterAppend; }));

    watch.reset();
    const int seen = wakes;
    std::ofstream(file, std::ios::app) << "{}\n";
    spinUntil([] { return false; }, 50);
    EXPECT_EQ(wakes, seen);
    EXPECT_EQ(watcher.watchFile(dir / "missing", [] {}), nullptr);
}

}  // namespace
}  // namespace vantrelle

#include "ProcProcessTable.h"

namespace vantrelle {
namespace {

TEST(ProcProcessTable, ReadsProgramAndArgumentsAndSkipsWhatIsNotAProcess) {
    testing::TempDir dir;
    std::filesystem::create_directories(dir / "proc/101");
    std::filesystem::create_symlink("/usr/local/bin/node", dir / "proc/101/exe");
    dir.write("proc/101/cmdline", std::string("node\0/home/ada/.npm/bin/claude\0--resume\0", 40));
    std::filesystem::create_directories(dir / "proc/202");  // exe hidden from us: argv[0] stands in
    dir.write("proc/202/cmdline", std::string("codex\0exec\0", 11));
    std::filesystem::create_directories(dir / "proc/self");
    dir.write("proc/uptime", "1.0 2.0");

    ProcProcessTable table(dir / "proc");
    std::string error;
    auto list = table.list(error);
    ASSERT_TRUE(list) << error;
    std::map<pid_t, ProcessInfo> byPid;
    for (const auto& p : *list) byPid[p.pid] = p;
    ASSERT_EQ(byPid.size(), 2u);
    EXPECT_EQ(byPid[101].executable, "/usr/local/bin/node");
    EXPECT_EQ(byPid[101].arguments, "node /home/ada/.npm/bin/claude --resume");
    EXPECT_EQ(byPid[202].executable, "codex");

    EXPECT_FALSE(ProcProcessTable(dir / "missing").list(error));
    EXPECT_FALSE(error.empty());
}

TEST(ProcProcessTable, SeesThisVeryProcess) {
    std::string error;
    auto list = ProcProcessTable().list(error);
    ASSERT_TRUE(list);
    const auto self = ::getpid();
    EXPECT_TRUE(std::any_of(list->begin(), list->end(), [&](const ProcessInfo& p) {
        return p.pid == self && p.executable.find("linux_tests") != std::string::npos;
    }));
}

}  // namespace
}  // namespace vantrelle
