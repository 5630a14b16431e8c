#include <gtest/gtest.h>

#include "shortcuts/KeyCombo.h"
#include "shortcuts/KeyTable.h"

namespace vantrelle {
namespace {

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
        {"all four in order",
         {'k', true, true, true, true},
         KeyCombo{40, 6912, "Ctrl+Alt+Shift+Super+K"},
         ""},
        {"Super-Space", {' ', false, false, false, true}, KeyCombo{49, 256, "Super+Space"}, ""},
        {"Ctrl-Page Down", {0xff56, true}, KeyCombo{121, 4096, "Ctrl+Page Down"}, ""},
        {"Shift-F12", {0xffc9, false, false, true}, KeyCombo{111, 512, "Shift+F12"}, ""},
        {"digit", {'1', false, true}, KeyCombo{18, 2048, "Alt+1"}, ""},
        {"a modifier on its own waits", {0xffe3, true}, std::nullopt, ""},
        {"a key without a stored code", {0x10000e9, true}, std::nullopt, "This key can't be a shortcut"},
    };
    for (const auto& c : cases) {
        const auto recorded = recordKey(c.press);
        EXPECT_EQ(recorded.combo, c.combo) << c.name;
        EXPECT_EQ(recorded.refusal, c.refusal) << c.name;
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
    EXPECT_EQ(xdgTrigger(96, 0), "F5");
    EXPECT_EQ(xdgTrigger(49, 4096), "CTRL+space");
    EXPECT_EQ(xdgTrigger(36, 2048), "ALT+Return");
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
