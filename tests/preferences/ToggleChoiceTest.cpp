#include <gtest/gtest.h>

#include "preferences/ToggleChoice.h"

namespace vantrelle {
namespace {

using enum QuickToggle;

TEST(ToggleChoiceTest, ShownTogglesJoinAtTheEndAndHiddenOnesLeave) {
    const std::vector<QuickToggle> visible{mute, darkMode, lockScreen};
    EXPECT_EQ(withToggleShown(visible, dockAutohide, true),
              (std::vector<QuickToggle>{mute, darkMode, lockScreen, dockAutohide}));
    EXPECT_EQ(withToggleShown(visible, darkMode, true), visible) << "showing a shown toggle keeps the order";
    EXPECT_EQ(withToggleShown(visible, darkMode, false), (std::vector<QuickToggle>{mute, lockScreen}));
    EXPECT_EQ(withToggleShown(visible, emptyTrash, false), visible)
        << "hiding a hidden toggle changes nothing";
    EXPECT_EQ(withToggleShown({mute}, mute, false), std::nullopt) << "the last visible toggle stays";
}

}  // namespace
}  // namespace vantrelle
