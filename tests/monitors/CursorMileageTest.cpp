#include <gtest/gtest.h>

#include <cmath>

#include "agents/IsoDate.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "wrapped/CursorMileage.h"
#include "wrapped/MileageShare.h"

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

TEST_F(CursorMileageTest, CountsThePathInMetresSkipsJumpsAndAppliesANewScaleToLaterTravelOnly) {
    auto mileage = make();
    mileage->record(0, 0);
    mileage->record(300, 400);                                      // 500 px
    mileage->record(300, 400 + CursorMileage::kMaxStepPixels + 1);  // another screen: no travel
    mileage->record(300, 5000);
    mileage->lift();
    mileage->record(0, 0);  // a fresh path after the pointer was lost
    mileage->setMetresPerPixel(0.002);
    mileage->record(100, 0);
    mileage->setMetresPerPixel(-1);  // nonsense from a screen without a size: ignored
    mileage->setMetresPerPixel(0);
    mileage->record(200, 0);
    const auto metres = mileage->meters(clock.now(), clock.now());
    ASSERT_EQ(metres.size(), 1U);
    EXPECT_NEAR(metres[0], 0.5 + 0.599 + 0.2 + 0.2, 1e-12);
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
    EXPECT_EQ(testing::unreadableCopies(corrupt).size(), 1U);

    auto demo = make(/*demo=*/true);
    demo->record(0, 0);
    demo->record(10, 0);
    demo->flush();
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(MileageShare, TextsForEveryDistance) {
    const struct {
        double metres;
        const char* distance;
        const char* share;
    } rows[] = {
        {std::nan(""), "0 m", "My cursor travelled 0 m today. Counted by Vantrelle."},
        {420, "420 m", "My cursor travelled 420 m today, a lap of a running track. Counted by Vantrelle."},
        {999.6, "1.0 km",
         "My cursor travelled 1.0 km today, 2 laps of a running track. Counted by Vantrelle."},
        {12345, "12 km",
         "My cursor travelled 12 km today, 30 laps of a running track. Counted by Vantrelle."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.metres);
        EXPECT_EQ(distanceText(row.metres), row.distance);
        EXPECT_EQ(mileageShareText(row.metres), row.share);
    }
}

TEST_F(CursorMileageTest, ShareCopiesTodaysMileageWithTheUnbookedTravel) {
    struct : Clipboard {
        void setText(const std::string& value) override { text = value; }
        std::string text;
    } clipboard;
    auto mileage = make();
    mileage->setMetresPerPixel(1.0);
    mileage->record(0, 0);
    mileage->record(300, 400);
    mileage->flush();
    mileage->record(600, 800);  // not booked yet
    MileageShare share(*mileage, clock, clipboard);
    EXPECT_EQ(share.share(),
              "My cursor travelled 1.0 km today, 2 laps of a running track. Counted by Vantrelle.");
    EXPECT_EQ(clipboard.text, share.share());

    mileage->flush();
    clock.advance(86400);  // a new day starts at nothing
    EXPECT_EQ(share.share(), "My cursor travelled 0 m today. Counted by Vantrelle.");
}

}  // namespace
}  // namespace vantrelle
