#include <gtest/gtest.h>

#include <memory>

#include "fakes/FakeDesktopNotifications.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "schedule/IcsFixtures.h"
#include "support/JsonDefaultsStore.h"
#include "support/LocalCalendar.h"
#include "wrapped/WrappedReminders.h"

namespace vantrelle {
namespace {

using testing::FakeDesktopNotifications;
using testing::localTime;

// One launch of the app: its defaults read from the file the last launch left.
struct Launch {
    Launch(const std::filesystem::path& file, Date now, FakeDesktopNotifications& service, bool demo = false)
        : scheduler(now),
          defaults(file, scheduler),
          reminders({scheduler, scheduler, settings, defaults, &service, demo}) {}
    VirtualScheduler scheduler;
    JsonDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem loginItem;
    AppSettings settings{defaults, notifications, loginItem, scheduler};
    WrappedReminders reminders;
};

class WrappedRemindersTest : public ::testing::Test {
protected:
    std::unique_ptr<Launch> launch(Date now, bool demo = false) {
        auto app = std::make_unique<Launch>(dir / "defaults.json", now, service, demo);
        app->reminders.start();
        return app;
    }
    [[nodiscard]] std::vector<std::string> posted() const {
        std::vector<std::string> periods;
        for (const auto& n : service.delivered) periods.push_back(n.tag + ":" + n.userInfo.at("wrapped"));
        return periods;
    }

    testing::ScopedTimeZone zone{"Europe/Berlin"};
    testing::TempDir dir;
    FakeDesktopNotifications service;
};

using Posts = std::vector<std::string>;

TEST_F(WrappedRemindersTest, OneReminderAtTheEndOfEachWeekAndMonth) {
    // Thursday; January ends on Saturday the 31st, the week on Sunday 1 February.
    auto app = launch(localTime(2026, 1, 29, 12));
    struct Step {
        Date until;
        Posts expected;
    };
    const Step steps[] = {
        {localTime(2026, 1, 31, 17, 59), {}},
        {localTime(2026, 1, 31, 18, 5), {"wrapped.month:thisMonth"}},
        {localTime(2026, 2, 1, 17, 59), {"wrapped.month:thisMonth"}},
        {localTime(2026, 2, 1, 18, 5), {"wrapped.month:thisMonth", "wrapped.week:thisWeek"}},
        {localTime(2026, 2, 8, 17, 59), {"wrapped.month:thisMonth", "wrapped.week:thisWeek"}},
        {localTime(2026, 2, 8, 23, 59),
         {"wrapped.month:thisMonth", "wrapped.week:thisWeek", "wrapped.week:thisWeek"}},
    };
    for (const Step& step : steps) {
        app->scheduler.advance(step.until.seconds - app->scheduler.now().seconds);
        EXPECT_EQ(posted(), step.expected) << LocalCalendar::dayKey(step.until);
    }
    EXPECT_EQ(service.delivered.front().title, "Your month, wrapped");
}

TEST_F(WrappedRemindersTest, ARestartNeverRepeatsAndAMissedOneComesTheNextDayOnly) {
    // Sunday evening, the first day of February: the week ends, and January's reminder was missed.
    const Posts both{"wrapped.week:thisWeek", "wrapped.month:lastMonth"};
    launch(localTime(2026, 2, 1, 18, 30));
    EXPECT_EQ(posted(), both);
    launch(localTime(2026, 2, 1, 22));
    launch(localTime(2026, 2, 2, 8));
    EXPECT_EQ(posted(), both) << "the same week, offered as last week, is not new";

    // Off over the next Sunday: Monday still offers last week, Tuesday nothing any more.
    service.delivered.clear();
    launch(localTime(2026, 2, 9, 9));
    EXPECT_EQ(posted(), Posts{"wrapped.week:lastWeek"});
    service.delivered.clear();
    launch(localTime(2026, 2, 17, 9));
    EXPECT_EQ(posted(), Posts{});
    launch(localTime(2026, 3, 1, 0, 30));
    EXPECT_EQ(posted(), Posts{"wrapped.month:lastMonth"});
}

TEST_F(WrappedRemindersTest, OffOrDemoMeansNone) {
    auto off = std::make_unique<Launch>(dir / "defaults.json", localTime(2026, 1, 31, 19), service);
    off->settings.setWrappedReminders(false);
    off->reminders.start();
    off->scheduler.advance(3 * 24 * 3600);
    launch(localTime(2026, 2, 1, 19), true)->scheduler.advance(3600);
    EXPECT_EQ(service.posts, 0);

    off->settings.setWrappedReminders(true);
    off->scheduler.advance(WrappedReminders::kCheckInterval);
    EXPECT_EQ(service.posts, 0) << "Tuesday: both have lapsed";
}

}  // namespace
}  // namespace vantrelle
