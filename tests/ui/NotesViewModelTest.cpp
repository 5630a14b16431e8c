#include <gtest/gtest.h>

#include "NotesViewModel.h"
#include "ViewModelFixture.h"

namespace vantrelle::testing {
namespace {

struct NotesViewModels : ::testing::Test {
    QGuiApplication& app = guiApplication();
    TempDir dir;
    VirtualScheduler clock{Date{1'900'000'000.0}};
    NotificationCenter notifications;
    NotesStore notes{{dir / "Vantrelle", dir / "tmp", clock, clock, notifications, false, {}}};
};

TEST_F(NotesViewModels, TheEditorsTextIsAnnouncedOnlyWhenAnotherNoteOpens) {
    NotesViewModel view(notes, clock);
    int selections = 0;
    QObject::connect(&view, &NotesViewModel::selectionChanged, &view, [&] { ++selections; });
    view.open();
    EXPECT_EQ(selections, 1);
    // Typing reaches the store without the editor being told its own text back.
    view.setText(QStringLiteral("Groceries\nmilk"));
    view.setText(QStringLiteral("Groceries\nmilk, eggs"));
    EXPECT_EQ(selections, 1);
    EXPECT_EQ(role(*view.notes(), 0, "preview"), "milk, eggs");
    EXPECT_EQ(view.savedLabel(), "Editing");
    clock.advance(NotesStore::kSaveDebounce);
    EXPECT_TRUE(view.savedLabel().startsWith(QStringLiteral("Saved ")));

    view.newNote();
    EXPECT_EQ(selections, 2);
    view.select(role(*view.notes(), 1, "noteId").toString());
    EXPECT_EQ(view.text(), "Groceries\nmilk, eggs");
}

}  // namespace
}  // namespace vantrelle::testing
