#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "schedule/FolderWatches.h"
#include "schedule/IcsFixtures.h"
#include "schedule/LiveCalendarSettings.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;

// A half-hour meeting on the test's day (the scheduler starts at 08:00 UTC), starting at `time`.
std::string meeting(const std::string& uid, const std::string& time, const std::string& extra = "") {
    return testing::calendar("BEGIN:VEVENT\nUID:" + uid + "\nSUMMARY:" + uid + "\nDTSTART:20270115T" + time +
                             "Z\nDURATION:PT30M\n" + extra + "END:VEVENT\n");
}

class LiveCalendarSettingsTest : public ::testing::Test, protected testing::AppBasics {
protected:
    LiveCalendarSettingsTest() {
        m_headsUps = notifications.observeMessage(Notifications::meetingHeadsUp,
                                                  [this](const std::string& id) { announced.push_back(id); });
        service.start();
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> result;
        for (const auto& event : service.events()) result.push_back(event.title);
        return result;
    }

    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    MapEnvironment environment;
    testing::FolderWatches watcher;
    CalendarPreferences preferences{defaults, dir / "data"};
    CalendarLibrary library{preferences.folderPaths(), preferences.addresses()};
    FolderCalendarSource source{library, watcher, scheduler};
    CalendarService service{
        {source, settings, activities, notifications, scheduler, scheduler, environment, false, {}}};
    ReminderList reminders{library, scheduler, false};
    LiveCalendarSettings live{preferences, source, service, reminders};
    std::vector<std::string> announced;

private:
    Connection m_headsUps;
};

TEST_F(LiveCalendarSettingsTest, AnAddedFolderIsReadWatchedAndAnnouncedAtOnceAndRemovingItTakesItAllAway) {
    dir.write("team/standup.ics", meeting("standup", "080400"));
    dir.write(
        "team/todo.ics",
        testing::calendar("BEGIN:VTODO\nUID:t\nSUMMARY:File expenses\nDUE;VALUE=DATE:20270115\nEND:VTODO\n"));

    ASSERT_TRUE(preferences.addFolder(dir / "team/"));
    EXPECT_EQ(titles(), std::vector<std::string>{"standup"});
    EXPECT_EQ(announced, std::vector<std::string>{"standup"}) << "inside the lead time: announced now";
    EXPECT_EQ(reminders.items().size(), 1u);
    EXPECT_EQ(watcher.live[dir / "team"], 1);

    ASSERT_TRUE(preferences.removeFolder(dir / "team"));
    EXPECT_TRUE(service.events().empty());
    EXPECT_EQ(watcher.live[dir / "team"], 0);
}

TEST_F(LiveCalendarSettingsTest, AnOwnAddressTurnsADeclinedMeetingsHeadsUpOffAndBackOn) {
    dir.write("data/calendars/work/review.ics",
              meeting("review", "082000",
                      "ATTENDEE;PARTSTAT=ACCEPTED:mailto:boss@example.com\n"
                      "ATTENDEE;PARTSTAT=DECLINED:mailto:me@example.com\n"));
    service.refreshIfAuthorized();
    ASSERT_EQ(titles(), std::vector<std::string>{"review"});
    EXPECT_TRUE(service.isHeadsUpScheduled()) << "nobody is the user yet, so nothing is declined";

    preferences.setAddresses("MAILTO:Me@Example.com");
    EXPECT_FALSE(service.isHeadsUpScheduled());
    scheduler.advance(900);

    preferences.setAddresses("");
    EXPECT_EQ(announced, std::vector<std::string>{"review"}) << "now inside the lead time";
}

TEST(CalendarPreferencesTest, KeepsAddedFoldersOnceAndOnlyRemovesThoseAcrossARestart) {
    testing::TempDir dir;
    MemoryDefaultsStore defaults;
    CalendarPreferences preferences(defaults, dir / "data");
    EXPECT_FALSE(preferences.addFolder(""));
    EXPECT_FALSE(preferences.addFolder("relative/folder"));
    EXPECT_FALSE(preferences.addFolder(dir / "data/calendars")) << "a default one is listed already";
    EXPECT_TRUE(preferences.addFolder(dir / "cals/./work/"));
    EXPECT_FALSE(preferences.addFolder(dir / "cals/work"));
    EXPECT_FALSE(preferences.removeFolder(dir / "data/calendars"));
    EXPECT_FALSE(preferences.removeFolder(dir / "elsewhere"));

    fs::create_directories(dir / "data/calendars");
    CalendarPreferences again(defaults, dir / "data");
    using Folder = CalendarPreferences::Folder;
    EXPECT_EQ(again.folders(), (std::vector<Folder>{{dir / "data/calendars", false, true},
                                                    {dir / "data/evolution/calendar", false, false},
                                                    {dir / "cals/work", true, false}}));
    EXPECT_TRUE(again.removeFolder(dir / "cals/work/"));
    EXPECT_EQ(again.folders().size(), 2u);
}

}  // namespace
}  // namespace vantrelle
