#include <gtest/gtest.h>

#include "support/AppPaths.h"

namespace vantrelle {
namespace {

TEST(AppPaths, FollowsTheXdgVariablesAndIgnoresRelativeOnes) {
    MapEnvironment env(
        {{"HOME", "/home/ada"}, {"XDG_DATA_HOME", "/data"}, {"XDG_CONFIG_HOME", "relative/cfg"}});
    const auto paths = AppPaths::fromEnvironment(env);
    EXPECT_EQ(paths.dataRoot(), "/data/Vantrelle");
    EXPECT_EQ(paths.legacyRoot(), "/data/Kestrand");
    EXPECT_EQ(paths.configRoot(), "/home/ada/.config/Vantrelle");
    EXPECT_EQ(paths.cacheRoot(), "/home/ada/.cache/Vantrelle");
    EXPECT_EQ(paths.autostartEntry(), "/home/ada/.config/autostart/vantrelle.desktop");
}

}  // namespace
}  // namespace vantrelle
