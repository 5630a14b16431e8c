#include <gtest/gtest.h>

#include "fakes/CountingQueue.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/DebugLog.h"

namespace vantrelle {
namespace {

class DebugLogTest : public ::testing::Test {
protected:
    void SetUp() override { setenv("TZ", "UTC", 1), tzset(); }
    void TearDown() override { DebugLog::disable(); }
    testing::TempDir dir;
    VirtualScheduler clock{Date{1'800'000'000.25}};
};

TEST_F(DebugLogTest, OffWithoutTheVariable) {
    MapEnvironment env;
    InlineQueueFactory queues;
    DebugLog::configureFromEnvironment(env, queues);
    bool evaluated = false;
    DebugLog::write([&] {
        evaluated = true;
        return std::string("never");
    });
    EXPECT_FALSE(DebugLog::isOn());
    EXPECT_FALSE(evaluated);
}

TEST_F(DebugLogTest, CreatesTheFolderStampsEachLineAndTheNextRunAppends) {
    int dispatched = 0;
    const auto file = dir / "deep/er/v.log";
    DebugLog::configure(file, std::make_unique<testing::CountingQueue>("debuglog", dispatched), clock);
    DebugLog::write("overlay: expand (unspecified)");
    clock.advance(61.5);
    DebugLog::write([] { return std::string("quiet: fullScreen=false"); });
    EXPECT_EQ(dispatched, 2) << "lines are written on the log's own queue";
    DebugLog::disable();
    DebugLog::configure(file, std::make_unique<InlineQueue>("debuglog"), clock);
    DebugLog::write("next run");
    EXPECT_EQ(dir.read("deep/er/v.log"),
              "08:00:00.250 overlay: expand (unspecified)\n"
              "08:01:01.750 quiet: fullScreen=false\n"
              "08:01:01.750 next run\n");
}

TEST_F(DebugLogTest, AnUnwritablePathLosesTheLinesAndTouchesNothing) {
    dir.write("file", "x");
    DebugLog::configure(dir / "file/v.log", std::make_unique<InlineQueue>("debuglog"), clock);
    DebugLog::write("goes nowhere");
    EXPECT_EQ(dir.read("file"), "x") << "the file in the way is left as it was";
    EXPECT_TRUE(std::filesystem::is_regular_file(dir / "file"));
}

}  // namespace
}  // namespace vantrelle
