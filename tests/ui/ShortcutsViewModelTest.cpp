#include <gtest/gtest.h>

#include "GuiApplication.h"
#include "ShortcutsViewModel.h"
#include "platform/VirtualScheduler.h"
#include "shortcuts/FakeHotKeys.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle::testing {
namespace {

struct ShortcutsViewModelTest : ::testing::Test {
    QGuiApplication& app = guiApplication();
    MemoryDefaultsStore defaults;
    FakeHotKeys hotKeys;
    VirtualScheduler scheduler;
    ToolShortcuts shortcuts{defaults, hotKeys, scheduler};
    ShortcutsViewModel view{shortcuts};

    [[nodiscard]] QVariant row(const QString& target, ShortcutListModel::Role role) {
        auto* rows = view.rows();
        for (int i = 0; i < rows->count(); ++i) {
            const auto index = rows->index(i);
            if (rows->data(index, static_cast<int>(ShortcutListModel::Role::target)).toString() == target)
                return rows->data(index, static_cast<int>(role));
        }
        return {};
    }
};

TEST_F(ShortcutsViewModelTest, QtKeysBecomeKeysyms) {
    const std::pair<int, std::uint32_t> keys[] = {
        {Qt::Key_K, 'K'},        {Qt::Key_5, '5'},       {Qt::Key_Space, ' '},
        {Qt::Key_F1, 0xffbe},    {Qt::Key_F15, 0xffcc},  {Qt::Key_PageDown, 0xff56},
        {Qt::Key_Enter, 0xff0d}, {Qt::Key_Meta, 0xffeb}, {Qt::Key_Control, 0xffe3},
        {Qt::Key_MediaPlay, 0},
    };
    for (const auto& [qt, keysym] : keys) EXPECT_EQ(ShortcutsViewModel::keysymOf(qt), keysym) << qt;
}

TEST_F(ShortcutsViewModelTest, ARowRecordsRefusesAndShowsWhatFailed) {
    view.startRecording(QStringLiteral("notch"));
    EXPECT_TRUE(row(QStringLiteral("notch"), ShortcutListModel::Role::recording).toBool());
    view.keyPressed(Qt::Key_K, Qt::ShiftModifier);
    EXPECT_EQ(view.message(), QStringLiteral("Add Ctrl, Alt or Super"));
    view.keyPressed(Qt::Key_K, Qt::ControlModifier | Qt::MetaModifier);
    EXPECT_EQ(view.recording(), QString());
    EXPECT_EQ(row(QStringLiteral("notch"), ShortcutListModel::Role::display), QStringLiteral("Ctrl+Super+K"));

    hotKeys.taken.insert({96, 0});
    view.startRecording(QStringLiteral("calc"));
    view.keyPressed(Qt::Key_F5, 0);
    EXPECT_EQ(row(QStringLiteral("calc"), ShortcutListModel::Role::note),
              QStringLiteral("Taken by another app"));
    view.clear(QStringLiteral("calc"));
    EXPECT_EQ(row(QStringLiteral("calc"), ShortcutListModel::Role::display), QString());
    EXPECT_EQ(row(QStringLiteral("calc"), ShortcutListModel::Role::note), QString());

    view.startRecording(QStringLiteral("no such tool"));
    EXPECT_FALSE(view.keyPressed(Qt::Key_K, Qt::ControlModifier));
}

}  // namespace
}  // namespace vantrelle::testing
