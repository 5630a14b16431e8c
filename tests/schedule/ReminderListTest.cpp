#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "schedule/IcsFixtures.h"
#include "schedule/ReminderList.h"

namespace vantrelle {
namespace {

class ReminderListTest : public ::testing::Test {
protected:
    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler clock{testing::utcTime(2026, 11, 3, 9)};
    CalendarLibrary library{{dir / "calendars"}, {}};
};

TEST_F(ReminderListTest, ListsOpenOnesFirstAndTickingWritesTheFileAndRereadsIt) {
    dir.write(
        "calendars/tasks/a.ics",
        testing::calendar(
            "BEGIN:VTODO\nUID:late\nSUMMARY:Late one\nDUE:20261103T170000Z\nEND:VTODO\n"
            "BEGIN:VTODO\nUID:done\nSUMMARY:Done one\nDUE:20261103T080000Z\nSTATUS:COMPLETED\nEND:VTODO\n"
            "BEGIN:VTODO\nUID:early\nSUMMARY:Early one\nDUE:20261103T100000Z\nEND:VTODO\n"));
    ReminderList list(library, clock, false);
    int changes = 0;
    auto connection = list.changed.connect([&] { ++changes; });
    list.refresh();
    ASSERT_EQ(list.items().size(), 3u);
    EXPECT_EQ(list.items()[0].title, "Early one");
    EXPECT_TRUE(list.items()[2].completed);
    EXPECT_EQ(changes, 1);
    list.refresh();
    EXPECT_EQ(changes, 1) << "nothing changed, nothing announced";

    EXPECT_TRUE(list.complete(0));
    EXPECT_EQ(list.items()[2].title, "Early one") << "ticked: to the end";
    EXPECT_NE(dir.read("calendars/tasks/a.ics").find("STATUS:COMPLETED"), std::string::npos);
    EXPECT_FALSE(list.complete(2)) << "already done";
    EXPECT_FALSE(list.complete(7));
}

TEST_F(ReminderListTest, AFileThatVanishedIsLoggedAndNothingChanges) {
    testing::LogCapture log;
    dir.write("calendars/tasks/a.ics",
              testing::calendar("BEGIN:VTODO\nUID:x\nSUMMARY:X\nDUE:20261103T170000Z\nEND:VTODO\n"));
    ReminderList list(library, clock, false);
    list.refresh();
    std::filesystem::remove(dir / "calendars/tasks/a.ics");
    EXPECT_FALSE(list.complete(0));
    EXPECT_FALSE(list.items()[0].completed);
    EXPECT_FALSE(log.text().empty());
}

}  // namespace
}  // namespace vantrelle
