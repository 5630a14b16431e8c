#include <gtest/gtest.h>

#include "mirror/MirrorCamera.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

class MirrorCameraTest : public ::testing::Test {
protected:
    VirtualScheduler clock;
    CameraUse use;
    MirrorCamera camera{use, clock};
};

TEST_F(MirrorCameraTest, TheCameraStaysOursForFourSecondsAfterTheMirrorCloses) {
    camera.setWanted(true);
    camera.setSessionRunning(true);
    clock.advance(30);
    EXPECT_TRUE(camera.isInUseByUs());

    camera.stop();                    // the panel closed
    camera.setSessionRunning(false);  // the device reports the session over a moment later
    clock.advance(3.99);
    EXPECT_TRUE(camera.isInUseByUs()) << "a device still reporting 'running' is not a call yet";
    clock.advance(0.01);
    EXPECT_FALSE(camera.isInUseByUs());
}

TEST_F(MirrorCameraTest, TheMarginCountsFromTheLastHoldEnding) {
    camera.setWanted(true);
    camera.setSessionRunning(true);
    camera.setWanted(false);  // the view went, the session still runs
    clock.advance(10);
    EXPECT_TRUE(camera.isInUseByUs());
    camera.setSessionRunning(false);
    clock.advance(3.9);
    EXPECT_TRUE(camera.isInUseByUs());
    clock.advance(0.1);
    EXPECT_FALSE(camera.isInUseByUs());
}

TEST_F(MirrorCameraTest, NeverHavingHeldTheCameraLeavesNoMargin) {
    camera.stop();
    camera.setSessionRunning(false);
    EXPECT_FALSE(camera.isInUseByUs());
    EXPECT_FALSE(use.ownUseEndedAt.has_value());
}

TEST_F(MirrorCameraTest, ChangedFiresOnlyWhenWantedChanges) {
    int changes = 0;
    auto connection = camera.changed.connect([&] { ++changes; });
    camera.setWanted(true);
    camera.setWanted(true);
    camera.setSessionRunning(true);
    camera.stop();
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(camera.wanted());
}

}  // namespace
}  // namespace vantrelle
