#include <gtest/gtest.h>

#include "QtProcessRunner.h"

namespace vantrelle {
namespace {

TEST(QtProcessRunner, ReportsOutputExitCodesMissingProgramsAndTimeouts) {
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

}  // namespace
}  // namespace vantrelle
