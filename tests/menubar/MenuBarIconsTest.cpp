#include <gtest/gtest.h>

#include <map>

#include "FakeTrayItems.h"
#include "fakes/FakeOverlayPorts.h"
#include "menubar/MenuBarIcons.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeTrayItems;

TrayPixmap square(int side, std::size_t bytes) {
    return {side, side, std::vector<std::uint8_t>(bytes, 0xff)};
}

class MenuBarIconsTest : public ::testing::Test {
protected:
    MenuBarIconsTest() { screens.list = {testing::notchedScreen()}; }

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
    testing::FakeScreens screens;
    VirtualScheduler scheduler;
    std::map<std::string, Rect> frames;
    double menusEnd = 0;
};

TEST_F(MenuBarIconsTest, HiddenRulesOverInjectedFrames) {
    const struct {
        const char* name;
        Rect frame;
        bool notch;
        double menusEnd;
        bool hidden;
    } rows[] = {
        {"clear of the notch", {600, 960, 56, 22}, true, 0, false},
        {"one point into the notch's left", {601, 960, 56, 22}, true, 0, true},
        {"one point into the notch's right", {855, 960, 20, 22}, true, 0, true},
        {"starts where the notch ends", {856, 960, 20, 22}, true, 0, false},
        {"under the focused program's menus", {100, 960, 20, 22}, false, 150, true},
        {"without a notch nothing but menus hides", {700, 960, 20, 22}, false, 0, false},
        {"off the screen's edge", {1500, 960, 20, 22}, true, 0, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        tray.list.clear();
        if (!row.notch) screens.list[0].auxiliaryTopLeftArea.reset();
        menusEnd = row.menusEnd;
        add(":1.5/StatusNotifierItem", "Foo", row.frame);
        auto icons = make();
        icons.refresh();
        ASSERT_EQ(icons.icons().size(), 1U);
        EXPECT_EQ(icons.icons()[0].isHidden, row.hidden);
        EXPECT_EQ(icons.hidden().size(), row.hidden ? 1U : 0U);
        screens.list = {testing::notchedScreen()};
    }
}

TEST_F(MenuBarIconsTest, NamesAreCleanedAndIconsSortedByLeftEdge) {
    EXPECT_EQ(cleanAppName("Bar Menu Agent"), "Bar Menu");  // the first suffix that matches ends it
    EXPECT_EQ(cleanAppName("Helper"), "Helper");
    add("a", "Foo Helper", Rect{900, 960, 20, 22}, 7);
    add("b", "Drop", std::nullopt, 7);
    add("c", "", Rect{300, 960, 20, 22}, 8);
    tray.list.back().id = "nm-applet";
    add("d", "", Rect{200, 960, 0, 22}, 9);  // no width: unplaced
    auto icons = make();
    icons.refresh();
    std::vector<std::string> shown;  // id, then label, then whether it has a place
    for (const auto& icon : icons.icons())
        shown.push_back(icon.id + " " + icon.label + (icon.frame ? "" : " -"));
    EXPECT_EQ(shown, (std::vector<std::string>{"nm-applet#0#8 nm-applet", "Foo#0#7 Foo Helper",
                                               "Drop#1#7 Drop -", "App#0#9 App -"}));
}

TEST_F(MenuBarIconsTest, ScansAndTakesNewPicturesOnlyWhileWatchedAndStopsWhenTheLastViewGoes) {
    auto icons = make();
    int changes = 0;
    auto connection = icons.changed.connect([&] { ++changes; });
    icons.setActive(true);
    icons.setActive(true);
    add("a", "Foo", Rect{10, 960, 20, 22});
    scheduler.advance(MenuBarIcons::kPollInterval);
    EXPECT_EQ(icons.icons().size(), 1U);
    tray.list[0].iconPixmaps = {square(4, 64)};
    tray.announce();  // a new picture is taken at once
    EXPECT_EQ(icons.icons().at(0).pixmap, square(4, 64));
    icons.setActive(false);
    EXPECT_TRUE(icons.isPolling());
    icons.setActive(false);
    icons.setActive(false);  // one too many changes nothing
    EXPECT_FALSE(icons.isPolling());
    add("b", "Bar", Rect{40, 960, 20, 22});
    scheduler.advance(MenuBarIcons::kPollInterval * 3);
    tray.list[0].iconPixmaps = {square(2, 16)};
    tray.announce();
    EXPECT_EQ(icons.icons().size(), 1U);
    // The watcher found, the one icon, its picture; an unchanged scan and an unwatched picture say nothing.
    EXPECT_EQ(changes, 3);

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
    EXPECT_EQ(tray.activations, std::vector<std::string>{":1.9/StatusNotifierItem 710,971"});

    tray.answers = false;
    icons.open(icons.icons()[0], {});
    scheduler.advance(MenuBarIcons::kCollapseDelay);
    EXPECT_TRUE(icons.status().value_or("").starts_with("Foo doesn't let other apps open its menu"));
    tray.answers = true;
    icons.open(icons.icons()[0], {});
    EXPECT_FALSE(icons.status().has_value());  // cleared by the next open
}

TEST(MenuBarPixmap, PicksTheUsableSizeNearestTheViewsLargerOnATie) {
    const auto full = [](int side) { return square(side, static_cast<std::size_t>(side * side * 4)); };
    const struct {
        const char* name;
        std::vector<TrayPixmap> pixmaps;
        int wanted;  // the chosen one's width, 0 for none
    } cases[] = {
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
    for (const auto& c : cases) {
        const auto chosen = closestPixmap(c.pixmaps, MenuBarIcons::kIconSide);
        EXPECT_EQ(chosen ? chosen->width : 0, c.wanted) << c.name;
    }
}

}  // namespace
}  // namespace vantrelle
