#include <gtest/gtest.h>

#include "agents/IsoDate.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "wrapped/CursorMileage.h"

namespace vantrelle {
namespace {

class CursorMileageTest : public ::testing::Test {
protected:
    std::unique_ptr<CursorMileage> make(bool demo = false) {
        auto mileage = std::make_unique<CursorMileage>(file, clock, demo);
        mileage->setMetresPerPixel(0.001);  // a millimetre per pixel keeps the figures round
        return mileage;
    }

    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    std::filesystem::path file = dir / "cursor-mileage.json";
    VirtualScheduler clock{*parseIsoDate("2027-03-02T10:00:00Z")};
};

TEST_F(CursorMileageTest, CountsThePathInMetresAndSkipsJumps) {
    auto mileage = make();
    mileage->record(0, 0);
    mileage->record(300, 400);                                      // 500 px
    mileage->record(300, 400 + CursorMileage::kMaxStepPixels + 1);  // another screen: no travel
    mileage->record(300, 5000);
    mileage->lift();
    mileage->record(0, 0);  // a fresh path after the pointer was lost
    const auto metres = mileage->meters(clock.now(), clock.now());
    ASSERT_EQ(metres.size(), 1U);
    EXPECT_NEAR(metres[0], 0.5 + 0.599, 1e-12);
}

TEST_F(CursorMileageTest, BooksTravelToTheDayOfTheFlushAndKeepsItAcrossRestarts) {
    {
        auto mileage = make();
        mileage->record(0, 0);
        mileage->record(1000, 0);
        mileage->flush();
        clock.setNow(*parseIsoDate("2027-03-03T09:00:00Z"));
        mileage->record(1000, 2000);
        mileage->flush();
    }
    auto again = make();
    EXPECT_EQ(again->meters(*parseIsoDate("2027-03-01T12:00:00Z"), *parseIsoDate("2027-03-03T23:00:00Z")),
              (std::vector<double>{0, 1, 2}));
}

TEST_F(CursorMileageTest, AnUnreadableFileIsMovedAsideAndDemoModeWritesNothing) {
    testing::TempDir other;
    const auto corrupt = other.write("cursor-mileage.json", "[1, 2");
    CursorMileage broken(corrupt, clock, false);
    EXPECT_TRUE(broken.days().empty());
    EXPECT_FALSE(std::filesystem::exists(corrupt));

    auto demo = make(/*demo=*/true);
    demo->record(0, 0);
    demo->record(10, 0);
    demo->flush();
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(CursorMileageTest, ANewScaleAppliesOnlyToLaterTravel) {
    auto mileage = make();
    mileage->record(0, 0);
    mileage->record(100, 0);
    mileage->setMetresPerPixel(0.002);
    mileage->record(200, 0);
    mileage->setMetresPerPixel(-1);  // nonsense from a screen without a size: ignored
    mileage->setMetresPerPixel(0);
    mileage->record(300, 0);
    EXPECT_NEAR(mileage->meters(clock.now(), clock.now()).front(), 0.1 + 0.2 + 0.2, 1e-12);
}

}  // namespace
}  // namespace vantrelle
