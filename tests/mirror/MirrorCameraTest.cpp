#include <gtest/gtest.h>

#include "mirror/MirrorCamera.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

class MirrorCameraTest : public ::testing::Test {
protected:
    // The camera counts as ours for four more seconds after the session stopped, then not.
    void expectOursForTheMargin() {
        clock.advance(3.99);
        EXPECT_TRUE(camera.isInUseByUs()) << "a device still reporting 'running' is not a call yet";
        clock.advance(0.01);
        EXPECT_FALSE(camera.isInUseByUs());
    }

    VirtualScheduler clock;
    CameraUse use;
    MirrorCamera camera{use, clock};
};

TEST_F(MirrorCameraTest, TheCameraStaysOursForFourSecondsAfterTheLastHoldEnds) {
    camera.stop();  // never held: no margin
    EXPECT_FALSE(use.ownUseEndedAt.has_value());

    camera.setWanted(true);
    camera.setSessionRunning(true);
    clock.advance(30);
    EXPECT_TRUE(camera.isInUseByUs());
    camera.stop();                    // the panel closed
    camera.setSessionRunning(false);  // the device reports the session over a moment later
    expectOursForTheMargin();

    // The margin counts from the last hold ending.
    camera.setWanted(true);
    camera.setSessionRunning(true);
    camera.setWanted(false);  // the view went, the session still runs
    clock.advance(10);
    EXPECT_TRUE(camera.isInUseByUs());
    camera.setSessionRunning(false);
    expectOursForTheMargin();
}

}  // namespace
}  // namespace vantrelle
