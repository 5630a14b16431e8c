#include <gtest/gtest.h>

#include <filesystem>

#include "CameraProbe.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

TEST(CameraProbe, FindsAVideoDeviceHeldByAnotherProcess) {
    testing::TempDir dir;
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

}  // namespace
}  // namespace vantrelle
