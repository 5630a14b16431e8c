#include <gtest/gtest.h>

#include "GuiApplication.h"
#include "ShortcutsViewModel.h"
#include "platform/VirtualScheduler.h"
#include "shortcuts/FakeHotKeys.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle::testing {
namespace {

TEST(ShortcutsViewModelTest, QtKeysBecomeKeysyms) {
    const std::pair<int, std::uint32_t> keys[] = {
        {Qt::Key_K, 'K'},        {Qt::Key_Space, ' '},   {Qt::Key_F1, 0xffbe},   {Qt::Key_F15, 0xffcc},
        {Qt::Key_Enter, 0xff0d}, {Qt::Key_Meta, 0xffeb}, {Qt::Key_MediaPlay, 0},
    };
    for (const auto& [qt, keysym] : keys) EXPECT_EQ(ShortcutsViewModel::keysymOf(qt), keysym) << qt;
}

TEST(ShortcutsViewModelTest, ARecordedComboThatIsTakenShowsInItsRowWithWhy) {
    guiApplication();
    MemoryDefaultsStore defaults;
    FakeHotKeys hotKeys;
    VirtualScheduler scheduler;
    ToolShortcuts shortcuts{defaults, hotKeys, scheduler};
    ShortcutsViewModel view{shortcuts};
    hotKeys.taken.insert({96, 0});
    view.startRecording(QStringLiteral("calc"));
    view.keyPressed(Qt::Key_F5, 0);
    std::vector<QString> calc;
    for (const auto& row : view.rows()->rows())
        if (row.target == QStringLiteral("calc")) calc = {row.display, row.note};
    EXPECT_EQ(calc, (std::vector<QString>{QStringLiteral("F5"), QStringLiteral("Taken by another app")}));
}

}  // namespace
}  // namespace vantrelle::testing
