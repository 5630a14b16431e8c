#include <gtest/gtest.h>

#include <map>

#include "fakes/AppBasics.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "schedule/IcsFixtures.h"
#include "schedule/LiveCalendarSettings.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;

class FolderWatches final : public FileWatcher {
public:
    std::unique_ptr<FileWatch> watchFile(const fs::path&, std::function<void()>) override { return nullptr; }
    std::unique_ptr<FileWatch> watchFolder(const fs::path& folder, std::function<void()>) override {
        ++live[folder];
        return std::make_unique<Watch>(live[folder]);
    }
    // Open watches per folder: a dropped watch counts itself out.
    std::map<fs::path, int> live;

private:
    struct Watch final : FileWatch {
        explicit Watch(int& counter) : count(counter) {}
        ~Watch() override { --count; }
        int& count;
    };
};

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
    FolderWatches watcher;
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
    EXPECT_EQ(service.status(), CalendarService::Access::notDetermined);

    ASSERT_TRUE(preferences.addFolder(dir / "team/"));
    EXPECT_EQ(service.status(), CalendarService::Access::fullAccess);
    EXPECT_EQ(titles(), std::vector<std::string>{"standup"});
    EXPECT_EQ(announced, std::vector<std::string>{"standup"}) << "inside the lead time: announced now";
    EXPECT_EQ(reminders.items().size(), 1u);
    EXPECT_EQ(watcher.live[dir / "team"], 1);

    ASSERT_TRUE(preferences.removeFolder(dir / "team"));
    EXPECT_TRUE(service.events().empty());
    EXPECT_TRUE(reminders.items().empty());
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
    ASSERT_EQ(service.events().size(), 1u);
    EXPECT_TRUE(isDeclined(service.events()[0]));
    EXPECT_FALSE(service.isHeadsUpScheduled());
    scheduler.advance(900);

    preferences.setAddresses("");
    EXPECT_EQ(announced, std::vector<std::string>{"review"}) << "now inside the lead time";
}

TEST(CalendarPreferencesTest, KeepsAddedFoldersOnceAndOnlyRemovesThoseAcrossARestart) {
    testing::TempDir dir;
    MemoryDefaultsStore defaults;
    CalendarPreferences preferences(defaults, dir / "data");
    int changes = 0;
    auto connection = preferences.changed.connect([&] { ++changes; });

    EXPECT_FALSE(preferences.addFolder(""));
    EXPECT_FALSE(preferences.addFolder("relative/folder"));
    EXPECT_FALSE(preferences.addFolder(dir / "data/calendars")) << "a default one is listed already";
    EXPECT_TRUE(preferences.addFolder(dir / "cals/./work/"));
    EXPECT_FALSE(preferences.addFolder(dir / "cals/work"));
    EXPECT_FALSE(preferences.removeFolder(dir / "data/calendars"));
    EXPECT_FALSE(preferences.removeFolder(dir / "elsewhere"));
    EXPECT_EQ(changes, 1);

    fs::create_directories(dir / "data/calendars");
    CalendarPreferences again(defaults, dir / "data");
    using Folder = CalendarPreferences::Folder;
    EXPECT_EQ(again.folders(), (std::vector<Folder>{{dir / "data/calendars", false, true},
                                                    {dir / "data/evolution/calendar", false, false},
                                                    {dir / "cals/work", true, false}}));
    EXPECT_TRUE(again.removeFolder(dir / "cals/work/"));
    EXPECT_EQ(again.folders().size(), 2u);
}

TEST(CalendarPreferencesTest, SplitsTypedAddresses) {
    struct Case {
        const char* typed;
        std::vector<std::string> addresses;
    };
    const std::vector<Case> cases{
        {"", {}},
        {" ,; \n", {}},
        {"me@example.com", {"me@example.com"}},
        {"mailto:me@example.com;  Me@Example.com,work@example.org", {"me@example.com", "work@example.org"}},
        {"a@x.io\tb@x.io\nmailto:", {"a@x.io", "b@x.io"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CalendarPreferences::parseAddresses(c.typed), c.addresses) << c.typed;
}

}  // namespace
}  // namespace vantrelle
