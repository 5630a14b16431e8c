#include <csignal>

#include "TerminationSignals.h"
#include "TestApplication.h"

namespace vantrelle::testing {
namespace {

class TerminationSignalsTest : public EventLoopTest {};

TEST_F(TerminationSignalsTest, EachSignalReachesTheMainThreadAsACall) {
    for (int number : {SIGTERM, SIGHUP, SIGINT}) {
        SCOPED_TRACE(number);
        int received = 0;
        TerminationSignals signals([&](int caught) { received = caught; });
        ASSERT_TRUE(signals.isActive());
        ASSERT_EQ(::raise(number), 0);
        EXPECT_EQ(received, 0) << "the handler itself calls nothing";
        EXPECT_TRUE(spinUntil([&] { return received != 0; }));
        EXPECT_EQ(received, number);
    }
}

}  // namespace
}  // namespace vantrelle::testing
