#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "CanberraSoundPlayer.h"
#include "fakes/TempDir.h"
#include "platform/SerialQueue.h"
#include "support/DebugLog.h"

namespace vantrelle {
namespace {

TEST(CanberraSoundPlayer, MapsTheProgramsSoundsToThemeEvents) {
    const struct {
        const char* name;
        const char* themeSound;
    } rows[] = {
        {"Glass", "message-new-instant"},
        {"Submarine", "bell"},  // any other name still makes a sound
        {"", "bell"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_STREQ(CanberraSoundPlayer::themeSound(row.name), row.themeSound);
    }
}

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
