#include <gtest/gtest.h>

#include "agents/IsoDate.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/ScopedTimeZone.h"
#include "focus/DayProgressModel.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

Date at(const std::string& iso) {
    return *parseIsoDate(iso);
}

TEST(DayProgress, AcrossTheWorkdayEdgesAndMidnight) {
    testing::ScopedTimeZone zone{"UTC"};
    const struct {
        const char* name;
        std::int64_t start, end;
        const char* now;  // "MM-DD hh:mm:ss" in 2027, UTC
        WorkdayPhase phase;
        double fraction;
        const char* headline;
    } rows[] = {
        {"before", 540, 1080, "03-02 08:00:00", WorkdayPhase::before, 0, "Starts in 1 h"},
        {"at the start", 540, 1080, "03-02 09:00:00", WorkdayPhase::during, 0, "9 h left"},
        {"last second", 540, 1080, "03-02 17:59:59", WorkdayPhase::during, 32399.0 / 32400, "1 min left"},
        {"at the end", 540, 1080, "03-02 18:00:00", WorkdayPhase::after, 1, "Workday over"},
        {"after midnight", 540, 1080, "03-03 00:01:00", WorkdayPhase::before, 0, "Starts in 8 h 59 min"},
        {"night shift, evening", 1320, 360, "03-02 23:00:00", WorkdayPhase::during, 0.125, "7 h left"},
        {"night shift, past midnight", 1320, 360, "03-03 02:00:00", WorkdayPhase::during, 0.5, "4 h left"},
        {"night shift over", 1320, 360, "03-03 06:00:00", WorkdayPhase::before, 0, "Starts in 16 h"},
        {"to midnight", 540, 1440, "03-02 23:00:00", WorkdayPhase::during, 14.0 / 15, "1 h left"},
        {"from midnight", 1440, 60, "03-02 00:30:00", WorkdayPhase::during, 0.5, "30 min left"},
        {"out of range: the whole day", -50, 5000, "03-02 12:00:00", WorkdayPhase::during, 0.5, "12 h left"},
        {"no workday", 600, 600, "03-02 12:00:00", WorkdayPhase::unset, 0, "No workday set"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const DayProgress progress =
            dayProgressAt(at("2027-" + std::string(row.now).replace(5, 1, "T") + "Z"), row.start, row.end);
        EXPECT_EQ(progress.phase, row.phase);
        EXPECT_NEAR(progress.fraction, row.fraction, 1e-9);
        EXPECT_EQ(dayProgressHeadline(progress), row.headline);
    }
    const Date noon = at("2027-03-02T12:00:00Z");
    EXPECT_EQ(workdayHoursText(dayProgressAt(noon, 1320, 360)), "22:00 – 06:00");
    EXPECT_EQ(workdayHoursText(dayProgressAt(noon, -50, 5000)), "00:00 – 00:00");
    EXPECT_EQ(workdayHoursText(dayProgressAt(noon, 600, 600)), "");
}

TEST(DayProgress, KeepsToTheWallClockOnTheDayTheClocksGoForward) {
    testing::ScopedTimeZone zone{"Europe/Berlin"};
    // 28 March 2027: 02:00 becomes 03:00, so 09:00 to 18:00 is 9 real hours from 07:00 UTC.
    const DayProgress progress = dayProgressAt(at("2027-03-28T11:30:00Z"), 540, 1080);
    EXPECT_EQ(progress.start, at("2027-03-28T07:00:00Z"));
    EXPECT_EQ(progress.end, at("2027-03-28T16:00:00Z"));
    EXPECT_NEAR(progress.fraction, 0.5, 1e-9);
    EXPECT_EQ(dayProgressPercent(progress), "50%");
}

class DayProgressModelTest : public ::testing::Test {
protected:
    testing::ScopedTimeZone zone{"UTC"};
    VirtualScheduler clock{at("2027-03-02T08:59:00Z")};
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem loginItem;
    AppSettings settings{defaults, notifications, loginItem, clock};
    double metres = 1234;
    DayProgressModel model{{clock, clock, settings, [this] { return metres; }}};
};

TEST_F(DayProgressModelTest, TicksOnlyWhileShownAndFollowsTheSettings) {
    int changes = 0;
    const Connection connection = model.changed.connect([&] { ++changes; });
    EXPECT_EQ(model.mileageText(), "1.2 km of cursor travel today");
    clock.advance(60);  // not shown: no tick
    EXPECT_EQ(changes, 0);
    model.setActive(true);
    EXPECT_EQ(model.headline(), "9 h left");  // caught up on showing
    clock.advance(DayProgressModel::kTickInterval * 3);
    EXPECT_EQ(model.headline(), "8 h 59 min left");
    settings.setWorkdayEndMinutes(600);
    EXPECT_EQ(model.headline(), "59 min left");
    model.setActive(false);
    const int before = changes;
    clock.advance(3600);
    EXPECT_EQ(changes, before);
}

}  // namespace
}  // namespace vantrelle
