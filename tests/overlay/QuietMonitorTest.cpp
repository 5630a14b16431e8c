#include <gtest/gtest.h>

#include "overlay/QuietMonitor.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

class QuietMonitorTest : public ::testing::Test {
protected:
    QuietMonitor make() {
        return QuietMonitor(
            scheduler, scheduler,
            {[this](const auto& s) { return s.has_value() && fullScreen; }, [this] { return cameraRunning; }},
            camera, false);
    }

    VirtualScheduler scheduler;
    CameraUse camera;
    bool fullScreen = false;
    bool cameraRunning = false;
};

TEST_F(QuietMonitorTest, CallsBackOnlyOnChangeAndPollsEveryTwoSeconds) {
    auto monitor = make();
    int changes = 0;
    monitor.onChange = [&] { ++changes; };
    monitor.screen = [] { return std::optional<ScreenInfo>(ScreenInfo{}); };
    monitor.start();
    cameraRunning = true;
    scheduler.advance(1.9);
    EXPECT_FALSE(monitor.cameraBusyElsewhere());
    scheduler.advance(0.1);
    EXPECT_TRUE(monitor.cameraBusyElsewhere());
    scheduler.advance(10);
    EXPECT_EQ(changes, 1);
}

TEST_F(QuietMonitorTest, ClosingTheMirrorIsNotACallForFourSeconds) {
    auto monitor = make();
    camera.sessionRunning = true;
    cameraRunning = true;
    monitor.refresh();
    EXPECT_FALSE(monitor.cameraBusyElsewhere());

    camera.sessionRunning = false;
    camera.ownUseEndedAt = scheduler.now();
    scheduler.advance(3.9);
    monitor.refresh();
    EXPECT_FALSE(monitor.cameraBusyElsewhere());
    scheduler.advance(0.1);
    monitor.refresh();
    EXPECT_TRUE(monitor.cameraBusyElsewhere());
}

}  // namespace
}  // namespace vantrelle
