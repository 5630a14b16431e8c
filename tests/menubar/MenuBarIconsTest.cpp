#include <gtest/gtest.h>

#include <map>

#include "FakeTrayItems.h"
#include "fakes/FakeOverlayPorts.h"
#include "menubar/MenuBarIcons.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeScreens;
using testing::FakeTrayItems;

// A 1512-wide screen whose notch runs from 656 to 856.
ScreenInfo notchedScreen() {
    ScreenInfo screen;
    screen.frame = {0, 0, 1512, 982};
    screen.auxiliaryTopLeftArea = Rect{0, 950, 656, 32};
    screen.auxiliaryTopRightArea = Rect{856, 950, 656, 32};
    return screen;
}

class MenuBarIconsTest : public ::testing::Test {
protected:
    MenuBarIconsTest() { screens.list = {notchedScreen()}; }

    MenuBarIcons make() {
        return MenuBarIcons({tray, screens, scheduler, scheduler,
                             [this](const TrayItem& item) -> std::optional<Rect> {
                                 auto it = frames.find(item.address);
                                 return it == frames.end() ? std::nullopt : std::optional(it->second);
                             },
                             [this] { return menusEnd; }});
    }
    void add(const std::string& address, const std::string& title, std::optional<Rect> frame,
             std::int32_t pid = 10) {
        TrayItem item;
        item.address = address;
        item.title = title;
        item.pid = pid;
        tray.list.push_back(item);
        if (frame) frames[address] = *frame;
    }

    FakeTrayItems tray;
    FakeScreens screens;
    VirtualScheduler scheduler;
    std::map<std::string, Rect> frames;
    double menusEnd = 0;
};

TEST_F(MenuBarIconsTest, HiddenRulesOverInjectedFrames) {
    struct Row {
        const char* name;
        Rect frame;
        bool notch;
        double menusEnd;
        bool hidden;
    };
    const std::vector<Row> rows{
        {"clear of the notch", {600, 960, 56, 22}, true, 0, false},
        {"one point into the notch's left", {601, 960, 56, 22}, true, 0, true},
        {"one point into the notch's right", {855, 960, 20, 22}, true, 0, true},
        {"starts where the notch ends", {856, 960, 20, 22}, true, 0, false},
        {"under the focused program's menus", {100, 960, 20, 22}, false, 150, true},
        {"without a notch nothing but menus hides", {700, 960, 20, 22}, false, 0, false},
        {"off the right edge", {1500, 960, 20, 22}, true, 0, true},
        {"off the left edge", {-4, 960, 20, 22}, true, 0, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        tray.list.clear();
        frames.clear();
        screens.list = {notchedScreen()};
        if (!row.notch) screens.list[0].auxiliaryTopLeftArea.reset();
        menusEnd = row.menusEnd;
        add(":1.5/StatusNotifierItem", "Foo", row.frame);
        auto icons = make();
        icons.refresh();
        ASSERT_EQ(icons.icons().size(), 1U);
        EXPECT_EQ(icons.icons()[0].isHidden, row.hidden);
        EXPECT_EQ(icons.hidden().size(), row.hidden ? 1U : 0U);
    }
}

TEST_F(MenuBarIconsTest, NamesAreCleanedAndIconsSortedByLeftEdge) {
    EXPECT_EQ(cleanAppName("Foo Helper"), "Foo");
    EXPECT_EQ(cleanAppName("Helper"), "Helper");
    EXPECT_EQ(cleanAppName("Bar Menu Agent"), "Bar Menu");  // the first suffix that matches ends it
    EXPECT_EQ(cleanAppName(""), "App");

    add("a", "Foo Helper", Rect{900, 960, 20, 22}, 7);
    add("b", "Drop", std::nullopt, 7);
    add("c", "", Rect{300, 960, 20, 22}, 8);
    tray.list.back().id = "nm-applet";
    add("d", "", Rect{200, 960, 0, 22}, 9);  // no width: unplaced
    auto icons = make();
    icons.refresh();
    ASSERT_EQ(icons.icons().size(), 4U);
    EXPECT_EQ(icons.icons()[0].label, "nm-applet");
    EXPECT_EQ(icons.icons()[0].id, "nm-applet#0#8");
    EXPECT_EQ(icons.icons()[1].appName, "Foo");
    EXPECT_EQ(icons.icons()[1].label, "Foo Helper");
    EXPECT_EQ(icons.icons()[1].id, "Foo#0#7");
    EXPECT_EQ(icons.icons()[2].id, "Drop#1#7");
    EXPECT_EQ(icons.icons()[3].label, "App");
    EXPECT_FALSE(icons.icons()[3].frame.has_value());
}

TEST_F(MenuBarIconsTest, ScansOnlyWhileWatchedAndStopsWhenTheLastViewGoes) {
    auto icons = make();
    int changes = 0;
    auto connection = icons.changed.connect([&] { ++changes; });
    icons.setActive(true);
    icons.setActive(true);
    EXPECT_TRUE(icons.trusted());
    add("a", "Foo", Rect{10, 960, 20, 22});
    scheduler.advance(MenuBarIcons::kPollInterval);
    EXPECT_EQ(icons.icons().size(), 1U);
    icons.setActive(false);
    EXPECT_TRUE(icons.isPolling());
    icons.setActive(false);
    icons.setActive(false);  // one too many changes nothing
    EXPECT_FALSE(icons.isPolling());
    add("b", "Bar", Rect{40, 960, 20, 22});
    scheduler.advance(MenuBarIcons::kPollInterval * 3);
    EXPECT_EQ(icons.icons().size(), 1U);
    EXPECT_EQ(changes, 2);  // the watcher found, then the one icon; an unchanged scan says nothing

    tray.watcher = false;
    icons.refresh();
    EXPECT_FALSE(icons.trusted());
    EXPECT_TRUE(icons.icons().empty());
}

TEST_F(MenuBarIconsTest, OpeningCollapsesFirstAndSaysWhenTheItemRefuses) {
    add(":1.9/StatusNotifierItem", "Foo Helper", Rect{700, 960, 20, 22});
    auto icons = make();
    icons.refresh();
    int collapsed = 0;
    icons.open(icons.icons()[0], [&] { ++collapsed; });
    EXPECT_EQ(collapsed, 1);
    ASSERT_TRUE(icons.ignoreClicksUntil().has_value());
    EXPECT_GT(*icons.ignoreClicksUntil(), scheduler.now() + MenuBarIcons::kCollapseDelay);
    EXPECT_TRUE(tray.activations.empty());  // the panel is still closing
    scheduler.advance(MenuBarIcons::kCollapseDelay);
    ASSERT_EQ(tray.activations.size(), 1U);
    EXPECT_EQ(tray.activations[0], ":1.9/StatusNotifierItem 710,971");
    EXPECT_FALSE(icons.status().has_value());

    tray.answers = false;
    icons.open(icons.icons()[0], {});
    scheduler.advance(MenuBarIcons::kCollapseDelay);
    EXPECT_EQ(icons.status(),
              "Foo doesn't let other apps open its menu while it's hidden. Quit an app you don't "
              "need to make room.");
    tray.answers = true;
    icons.open(icons.icons()[0], {});
    EXPECT_FALSE(icons.status().has_value());  // cleared by the next open
}

TrayPixmap square(int side, std::size_t bytes) {
    return {side, side, std::vector<std::uint8_t>(bytes, 0xff)};
}

TEST(MenuBarPixmap, PicksTheUsableSizeNearestTheViewsLargerOnATie) {
    const auto full = [](int side) { return square(side, static_cast<std::size_t>(side * side * 4)); };
    struct Case {
        const char* name;
        std::vector<TrayPixmap> pixmaps;
        int wanted;  // the chosen one's width, 0 for none
    };
    const std::vector<Case> cases = {
        {"none sent", {}, 0},
        {"nearest", {full(48), full(16), full(32)}, 16},
        {"a tie goes to the larger", {full(16), full(20)}, 20},
        {"short bytes are skipped", {square(18, 18 * 18 * 4 - 1), full(48)}, 48},
        {"no size is skipped", {{0, 18, {}}, {18, -2, {}}}, 0},
        {"a huge one is skipped", {full(kMaxTrayPixmapSide + 1), full(64)}, 64},
        {"a wide one counts its longer side",
         {{36, 18, std::vector<std::uint8_t>(36 * 18 * 4)}, full(24)},
         24},
    };
    for (const Case& c : cases) {
        const auto chosen = closestPixmap(c.pixmaps, MenuBarIcons::kIconSide);
        EXPECT_EQ(chosen ? chosen->width : 0, c.wanted) << c.name;
    }
}

TEST_F(MenuBarIconsTest, AnAnnouncedPictureRefreshesOnlyWhileWatched) {
    add("a", "A", std::nullopt, 1);
    MenuBarIcons icons({tray, screens, scheduler, scheduler, {}, {}});
    ASSERT_TRUE(tray.announce);
    int changes = 0;
    auto connection = icons.changed.connect([&] { ++changes; });
    tray.list[0].iconPixmaps = {square(2, 16)};
    tray.announce();
    EXPECT_EQ(changes, 0);
    icons.setActive(true);
    EXPECT_EQ(icons.icons().at(0).pixmap, square(2, 16));
    tray.list[0].iconPixmaps = {square(4, 64)};
    tray.announce();
    EXPECT_EQ(icons.icons().at(0).pixmap, square(4, 64));
    EXPECT_EQ(changes, 2);
    icons.setActive(false);
}

}  // namespace
}  // namespace vantrelle
