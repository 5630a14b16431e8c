#include <gtest/gtest.h>

#include "catalog/AppSettings.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/JsonDefaultsStore.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::FakeLoginItem;

class AppSettingsTest : public ::testing::Test {
protected:
    AppSettings& load() {
        settings.emplace(defaults, notifications, loginItem, scheduler);
        return *settings;
    }

    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    FakeLoginItem loginItem;
    VirtualScheduler scheduler;
    std::optional<AppSettings> settings;
};

TEST_F(AppSettingsTest, WrongTypesAndUnknownNamesFallBack) {
    defaults.set("hoverDelay", std::string("fast"));
    defaults.set("showDock", std::int64_t{0});
    defaults.set("appearance", std::string("neon"));
    defaults.set("focusMinutes", 30.5);
    defaults.set("visibleToggles", std::vector<std::string>{"teleport"});
    defaults.set("dashboardTiles", std::vector<std::string>{"music", "weather", "music", "shelf"});
    auto& s = load();
    EXPECT_DOUBLE_EQ(s.hoverDelay(), 0.2);
    EXPECT_TRUE(s.showDock());
    EXPECT_EQ(s.appearance(), Appearance::system);
    EXPECT_EQ(s.focusMinutes(), 25);
    EXPECT_EQ(s.visibleToggles(), defaultVisibleToggles());
    // Tiles load and store normalised (the rule is DashTileTest's).
    EXPECT_EQ(s.dashboardTiles(), normalizedDashTiles({DashTile::music, DashTile::shelf}));
    s.setDashboardTiles({DashTile::aiUsage, DashTile::aiUsage});
    EXPECT_EQ(defaults.stringArray("dashboardTiles")->size(), 8u);
}

TEST_F(AppSettingsTest, LaterToolsAreIntroducedOnceAndStayOffWhenTurnedOff) {
    defaults.set("enabledTabs", std::vector<std::string>{"dashboard", "notes"});
    defaults.set("introduced.menuBar", true);
    {
        auto& s = load();
        EXPECT_TRUE(s.isEnabled(NotchTab::game));
        EXPECT_FALSE(s.isEnabled(NotchTab::menuBar));
        EXPECT_EQ(defaults.boolean("introduced.game"), true);
        s.setEnabled(NotchTab::game, false);
    }
    EXPECT_FALSE(load().isEnabled(NotchTab::game));
}

TEST_F(AppSettingsTest, AFreshStoreHasEveryToolOnAndNeitherDashboardNorTheLastToolCanBeTurnedOff) {
    auto& s = load();
    EXPECT_EQ(s.enabledTabs().size(), kNotchTabCount);
    EXPECT_FALSE(defaults.object("enabledTabs").has_value()) << "nothing written until a change";
    s.setEnabled(NotchTab::dashboard, false);
    EXPECT_TRUE(s.isEnabled(NotchTab::dashboard));

    s.setEnabledTabs({NotchTab::notes});
    s.setEnabled(NotchTab::notes, false);
    EXPECT_EQ(s.enabledTabs(), TabSet{NotchTab::notes});

    // Stored sorted by raw name, shown in the tools' own order.
    s.setEnabled(NotchTab::calc, true);
    EXPECT_EQ(*defaults.stringArray("enabledTabs"), (std::vector<std::string>{"calc", "notes"}));
    EXPECT_EQ(s.orderedEnabledTabs(), (std::vector<NotchTab>{NotchTab::notes, NotchTab::calc}));
}

TEST(AppSettingsPersistence, ValuesSurviveARestartThroughTheJsonStore) {
    testing::TempDir dir;
    NotificationCenter notifications;
    FakeLoginItem loginItem;
    VirtualScheduler scheduler;
    {
        JsonDefaultsStore store(dir / "defaults.json");
        AppSettings s(store, notifications, loginItem, scheduler);
        s.setHoverDelay(0.5);
        s.setAppearance(Appearance::dark);
        s.setVisibleToggles({QuickToggle::mute, QuickToggle::emptyTrash});
        s.setEnabled(NotchTab::game, false);
    }
    JsonDefaultsStore store(dir / "defaults.json");
    AppSettings s(store, notifications, loginItem, scheduler);
    EXPECT_DOUBLE_EQ(s.hoverDelay(), 0.5);
    EXPECT_EQ(s.appearance(), Appearance::dark);
    EXPECT_EQ(s.visibleToggles(), (std::vector<QuickToggle>{QuickToggle::mute, QuickToggle::emptyTrash}));
    // Stored without game and with no introduction recorded: the tool is introduced again, once.
    EXPECT_TRUE(s.isEnabled(NotchTab::game));
}

}  // namespace
}  // namespace vantrelle
