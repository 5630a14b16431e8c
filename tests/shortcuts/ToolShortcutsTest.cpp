#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "platform/VirtualScheduler.h"
#include "shortcuts/FakeHotKeys.h"
#include "shortcuts/KeyCombo.h"
#include "shortcuts/KeyTable.h"
#include "shortcuts/ToolShortcuts.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::FakeHotKeys;

const KeyCombo kCtrlAltK{40, 6144, "Ctrl+Alt+K"};
const KeyCombo kF5{96, 0, "F5"};

struct ShortcutsTest : ::testing::Test {
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
    EXPECT_NE(log.text().find("couldn't register Ctrl+Alt+K"), std::string::npos);
    // Freed by the other program: the next pass takes it.
    hotKeys.taken.clear();
    shortcuts.registerAll();
    EXPECT_TRUE(shortcuts.failed().empty());

    // A desktop that asks the user first refuses after accepting; an id of no pass is ignored.
    hotKeys.refuseLater(99);
    const auto notchId = std::find_if(shortcuts.ids().begin(), shortcuts.ids().end(),
                                      [](const auto& entry) { return entry.second == "notch"; });
    ASSERT_NE(notchId, shortcuts.ids().end());
    hotKeys.refuseLater(notchId->first);
    EXPECT_EQ(shortcuts.failed(), (std::set<std::string, std::less<>>{"notch"}));
}

TEST_F(ShortcutsTest, StoredKeysOfRemovedToolsNeverFireAndBadDataReadsEmpty) {
    const std::string json = R"({"teleporter":{"keyCode":40,"modifiers":6144,"display":"Ctrl+Alt+K"}})";
    defaults.set(ToolShortcuts::defaultsKey, Bytes(json.begin(), json.end()));
    ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
    wire(shortcuts);
    shortcuts.registerAll();
    hotKeys.press(40, 6144);
    scheduler.runUntilIdle();
    EXPECT_TRUE(fired.empty());
    defaults.set(ToolShortcuts::defaultsKey, std::string("not data"));
    EXPECT_TRUE(ToolShortcuts(defaults, hotKeys, scheduler).combos().empty());
}

TEST_F(ShortcutsTest, RecorderRefusesACombo) {
    ToolShortcuts shortcuts(defaults, hotKeys, scheduler);
    shortcuts.set(kCtrlAltK, ShortcutTarget::forTool(NotchTab::calc));
    const KeyPress ctrlAltK{'k', true, true};
    EXPECT_EQ(shortcuts.record(ctrlAltK, ShortcutTarget::notch()).refusal, "Already used by Calculator");
    EXPECT_EQ(shortcuts.record(ctrlAltK, ShortcutTarget::forTool(NotchTab::calc)).refusal, "") << "its own";
    EXPECT_EQ(shortcuts.record({0xffc2}, ShortcutTarget::notch()).refusal, "");
    EXPECT_EQ(shortcuts.combo(ShortcutTarget::notch()), kF5) << "only an accepted combo is stored";
}

struct RecorderCase {
    const char* name;
    KeyPress press;
    std::optional<KeyCombo> combo;
    std::string refusal;
};

TEST(KeyRecorder, RulesAndTexts) {
    const RecorderCase cases[] = {
        {"F5 alone", {0xffc2}, KeyCombo{96, 0, "F5"}, ""},
        {"K alone", {'k'}, std::nullopt, "Add Ctrl, Alt or Super"},
        {"Shift-K", {'K', false, false, true}, std::nullopt, "Add Ctrl, Alt or Super"},
        {"Ctrl-Alt-K", {'k', true, true}, KeyCombo{40, 4096 | 2048, "Ctrl+Alt+K"}, ""},
        {"all four", {'k', true, true, true, true}, KeyCombo{40, 6912, "Ctrl+Alt+Shift+Super+K"}, ""},
        {"Super-Space", {' ', false, false, false, true}, KeyCombo{49, 256, "Super+Space"}, ""},
        {"a modifier on its own waits", {0xffe3, true}, std::nullopt, ""},
        {"a key without a stored code", {0x10000e9, true}, std::nullopt, "This key can't be a shortcut"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(recordKey(c.press).combo, c.combo);
        EXPECT_EQ(recordKey(c.press).refusal, c.refusal);
    }
}

TEST(KeyTable, TranslatesStoredCodesToX11) {
    struct Row {
        std::uint32_t keyCode, modifiers, keysym;
        std::uint16_t xMask;
    };
    const Row rows[] = {
        {40, 4096 | 2048, 'k', 4 | 8}, {122, 0, 0xffbe, 0},
        {113, 512, 0xffcc, 1},         {49, 256, ' ', 64},
        {36, 4096, 0xff0d, 4},         {126, 4096 | 256 | 512, 0xff52, 4 | 64 | 1},
        {0, 0x8000 | 4096, 'a', 4},  // bits the mask doesn't know are dropped
    };
    for (const auto& row : rows) {
        const auto key = keyByCode(row.keyCode);
        ASSERT_TRUE(key) << row.keyCode;
        EXPECT_EQ(key->keysym, row.keysym) << row.keyCode;
        EXPECT_EQ(xModifiers(row.modifiers), row.xMask) << row.keyCode;
        EXPECT_EQ(keyBySym(row.keysym)->keyCode, row.keyCode);
    }
    EXPECT_FALSE(keyByCode(53));  // Escape closes the panel and the recorder; it is no shortcut
    EXPECT_EQ(lockVariants(4, 16), (std::array<std::uint16_t, 4>{4, 6, 20, 22}));
    // The portal's notation.
    EXPECT_EQ(xdgTrigger(40, 6144), "CTRL+ALT+k");
    EXPECT_EQ(xdgTrigger(121, 256 | 512), "SHIFT+LOGO+Page_Down");
    EXPECT_EQ(xdgTrigger(53, 0), "");
}

TEST(KeyCombos, JsonRoundTripAndBadInput) {
    const ComboMap combos{{"notch", {40, 6144, "Ctrl+Alt+K"}}, {"calc", {96, 0, "F5"}}};
    EXPECT_EQ(decodeCombos(encodeCombos(combos)), combos);

    EXPECT_TRUE(decodeCombos("").empty());
    EXPECT_TRUE(decodeCombos("[1,2]").empty());
    EXPECT_TRUE(decodeCombos(std::string(100000, '[')).empty());
    // A bad entry is left out, the good ones stay.
    const auto mixed = decodeCombos(
        R"({"notch":{"keyCode":40,"modifiers":6144,"display":"Ctrl+Alt+K"},"calc":{"keyCode":-1,"modifiers":0,)"
        R"("display":"x"},"game":{"keyCode":4294967296,"modifiers":0,"display":"x"},"today":"F5",)"
        R"("music":{"keyCode":1,"modifiers":0}})");
    EXPECT_EQ(mixed, (ComboMap{{"notch", {40, 6144, "Ctrl+Alt+K"}}}));
}

}  // namespace
}  // namespace vantrelle
