#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "CanberraSoundPlayer.h"
#include "fakes/TempDir.h"
#include "platform/SerialQueue.h"
#include "support/DebugLog.h"

namespace vantrelle {
namespace {

TEST(CanberraSoundPlayer, ASoundThatCantPlayIsLoggedNotThrown) {
    testing::TempDir dir;
    DebugLog::configure(dir / "debug.log", std::make_unique<InlineQueue>("debuglog"));
    ::setenv("CANBERRA_DRIVER", "vantrelle-no-such-driver", 1);  // libcanberra's choice of backend
    {
        CanberraSoundPlayer player;
        player.play("Glass");
    }
    ::unsetenv("CANBERRA_DRIVER");
    DebugLog::disable();
    EXPECT_NE(dir.read("debug.log").find("sound: Glass failed: "), std::string::npos)
        << dir.read("debug.log");
}

}  // namespace
}  // namespace vantrelle
