#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/LogMessages.h"
#include "platform/VirtualScheduler.h"
#include "shortcuts/FakeHotKeys.h"
#include "shortcuts/ToolShortcuts.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::FakeHotKeys;

const KeyCombo kCtrlAltK{40, 6144, "Ctrl+Alt+K"};
const KeyCombo kF5{96, 0, "F5"};

struct ShortcutsTest : ::testing::Test {
    void storeRaw(const std::string& json) {
        defaults.set(ToolShortcuts::defaultsKey, Bytes(json.begin(), json.end()));
    }
    std::vector<ShortcutTarget> fired;
    void wire(ToolShortcuts& shortcuts) {
        shortcuts.onFire = [this](ShortcutTarget target) { fired.push_back(target); };
    }

    MemoryDefaultsStore defaults;
    FakeHotKeys hotKeys;
    VirtualScheduler scheduler;
};

TEST_F(ShortcutsTest, SetPersistsRegistersAndFiresAcrossRestarts) {
    {
        ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
        shortcuts.set(kCtrlAltK, ShortcutTarget::forTool(NotchTab::calc));
        shortcuts.set(kF5, ShortcutTarget::notch());
    }
    FakeHotKeys nextRun;
    ToolShortcuts shortcuts(defaults, nextRun, scheduler);
    wire(shortcuts);
    EXPECT_EQ(shortcuts.combo(ShortcutTarget::forTool(NotchTab::calc)), kCtrlAltK);
    shortcuts.registerAll();
    nextRun.press(40, 6144);
    nextRun.press(96, 0);
    EXPECT_TRUE(fired.empty());  // handed to the main queue
    scheduler.runUntilIdle();
    EXPECT_EQ(fired, (std::vector{ShortcutTarget::forTool(NotchTab::calc), ShortcutTarget::notch()}));
}

TEST_F(ShortcutsTest, ClearingStopsTheKeyAtOnceAndIdsAreFreshEachPass) {
    ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
    wire(shortcuts);
    shortcuts.set(kCtrlAltK, ShortcutTarget::forTool(NotchTab::calc));
    shortcuts.set(kF5, ShortcutTarget::forTool(NotchTab::notes));
    const auto oldIds = shortcuts.ids();
    shortcuts.set(std::nullopt, ShortcutTarget::forTool(NotchTab::calc));
    EXPECT_EQ(hotKeys.installs, 1);
    EXPECT_EQ(hotKeys.live.size(), 1U);
    hotKeys.press(40, 6144);
    // An id of the previous pass names nothing now, or something else.
    for (const auto& [id, key] : oldIds) shortcuts.fire(id);
    scheduler.runUntilIdle();
    EXPECT_EQ(fired, std::vector{ShortcutTarget::forTool(NotchTab::notes)});
    EXPECT_EQ(shortcuts.ids(), (std::map<std::uint32_t, std::string>{{1, "notes"}}));
}

TEST_F(ShortcutsTest, RefusedCombosFailButStayStored) {
    testing::LogCapture log;
    hotKeys.taken.insert({40, 6144});
    ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
    shortcuts.set(kCtrlAltK, ShortcutTarget::forTool(NotchTab::calc));
    shortcuts.set(kF5, ShortcutTarget::notch());
    EXPECT_EQ(shortcuts.failed(), (std::set<std::string, std::less<>>{"calc"}));
    EXPECT_EQ(ToolShortcuts(defaults, hotKeys, scheduler).combos().size(), 2U);
    const auto messages = logMessages(log);
    EXPECT_NE(std::find(messages.begin(), messages.end(),
                        "shortcuts: couldn't register Ctrl+Alt+K for calc (-9878)"),
              messages.end());
    // Freed by the other program: the next pass takes it.
    hotKeys.taken.clear();
    shortcuts.registerAll();
    EXPECT_TRUE(shortcuts.failed().empty());

    // A desktop that asks the user first refuses after accepting; an id of no pass is ignored.
    int changes = 0;
    auto connection = shortcuts.changed.connect([&] { ++changes; });
    hotKeys.refuseLater(99);
    const auto notchId = std::find_if(shortcuts.ids().begin(), shortcuts.ids().end(),
                                      [](const auto& entry) { return entry.second == "notch"; });
    ASSERT_NE(notchId, shortcuts.ids().end());
    hotKeys.refuseLater(notchId->first);
    EXPECT_EQ(shortcuts.failed(), (std::set<std::string, std::less<>>{"notch"}));
    EXPECT_EQ(changes, 1);
}

TEST_F(ShortcutsTest, StoredKeysOfRemovedToolsNeverFireAndBadDataReadsEmpty) {
    storeRaw(R"({"teleporter":{"keyCode":40,"modifiers":6144,"display":"Ctrl+Alt+K"}})");
    ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
    wire(shortcuts);
    shortcuts.registerAll();
    hotKeys.press(40, 6144);
    scheduler.runUntilIdle();
    EXPECT_TRUE(fired.empty());

    for (const char* bad : {"", "{", "null", "[]"}) {
        storeRaw(bad);
        EXPECT_TRUE(ToolShortcuts(defaults, hotKeys, scheduler).combos().empty()) << bad;
    }
    defaults.set(ToolShortcuts::defaultsKey, std::string("not data"));
    EXPECT_TRUE(ToolShortcuts(defaults, hotKeys, scheduler).combos().empty());
}

TEST_F(ShortcutsTest, RecorderRefusesACombo) {
    ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
    shortcuts.set(kCtrlAltK, ShortcutTarget::forTool(NotchTab::calc));
    struct Case {
        KeyPress press;
        ShortcutTarget target;
        std::string refusal;
    };
    const Case cases[] = {
        {{'k', true, true}, ShortcutTarget::notch(), "Already used by Calculator"},
        {{'k', true, true}, ShortcutTarget::forTool(NotchTab::calc), ""},  // its own combo again
        {{0xffc2}, ShortcutTarget::notch(), ""},
    };
    for (const auto& c : cases) EXPECT_EQ(shortcuts.record(c.press, c.target).refusal, c.refusal);
    EXPECT_EQ(shortcuts.combo(ShortcutTarget::notch()), kF5);
    EXPECT_EQ(shortcuts.combos().size(), 2U);
}

}  // namespace
}  // namespace vantrelle
