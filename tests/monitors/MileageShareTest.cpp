#include <gtest/gtest.h>

#include <cmath>

#include "agents/IsoDate.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "wrapped/MileageShare.h"

namespace vantrelle {
namespace {

TEST(MileageShare, TextsForEveryDistance) {
    const struct {
        double metres;
        const char* distance;
        const char* share;
    } rows[] = {
        {0, "0 m", "My cursor travelled 0 m today. Counted by Vantrelle."},
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

TEST(MileageShare, CopiesTodaysMileageWithTheUnbookedTravel) {
    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler clock{*parseIsoDate("2027-03-02T10:00:00Z")};
    struct : Clipboard {
        void setText(const std::string& value) override { text = value; }
        std::string text;
    } clipboard;
    CursorMileage mileage(dir / "mileage.json", clock, false);
    mileage.setMetresPerPixel(1.0);
    mileage.record(0, 0);
    mileage.record(300, 400);
    mileage.flush();
    mileage.record(600, 800);  // not booked yet
    MileageShare share(mileage, clock, clipboard);
    EXPECT_EQ(share.share(),
              "My cursor travelled 1.0 km today, 2 laps of a running track. Counted by Vantrelle.");
    EXPECT_EQ(clipboard.text, share.share());

    mileage.flush();
    clock.advance(86400);  // a new day starts at nothing
    EXPECT_EQ(share.share(), "My cursor travelled 0 m today. Counted by Vantrelle.");
}

}  // namespace
}  // namespace vantrelle
