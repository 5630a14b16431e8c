#include <gtest/gtest.h>

#include "GuiApplication.h"
#include "NotesViewModel.h"
#include "TasksViewModel.h"
#include "ViewModelFixture.h"
#include "fakes/TempDir.h"
#include "notes/NotesStore.h"
#include "notes/TaskStore.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle::testing {
namespace {

class NotesAndTasksViewModels : public ::testing::Test {
protected:
    NotesAndTasksViewModels() { guiApplication(); }

    TempDir dir;
    VirtualScheduler clock{Date{1'900'000'000.0}};
    NotificationCenter notifications;
    NotesStore notes{{dir / "Vantrelle", dir / "tmp", clock, clock, notifications, false, {}}};
    TaskStore tasks{{dir / "Vantrelle", dir / "tmp", clock, false, {}}};
};

TEST_F(NotesAndTasksViewModels, TheEditorsTextIsAnnouncedOnlyWhenAnotherNoteOpens) {
    NotesViewModel view(notes, clock);
    int selections = 0;
    QObject::connect(&view, &NotesViewModel::selectionChanged, &view, [&] { ++selections; });
    view.open();
    EXPECT_EQ(selections, 1);
    // Typing reaches the store without the editor being told its own text back.
    view.setText(QStringLiteral("Groceries\nmilk"));
    view.setText(QStringLiteral("Groceries\nmilk, eggs"));
    EXPECT_EQ(selections, 1);
    EXPECT_EQ(notes.text(), "Groceries\nmilk, eggs");
    EXPECT_EQ(role(*view.notes(), 0, "preview"), "milk, eggs");
    EXPECT_EQ(view.savedLabel(), "Editing");
    clock.advance(NotesStore::kSaveDebounce);
    EXPECT_TRUE(view.savedLabel().startsWith(QStringLiteral("Saved ")));

    view.newNote();
    EXPECT_EQ(selections, 2);
    EXPECT_EQ(view.text(), "");
    view.select(role(*view.notes(), 1, "noteId").toString());
    EXPECT_EQ(view.text(), "Groceries\nmilk, eggs");
}

TEST_F(NotesAndTasksViewModels, TheNotesTileListsTheLatestNotesWithText) {
    NotesViewModel view(notes, clock);
    for (const char* body : {"one", "two", "three", "four"}) {
        notes.newNote(body);
        clock.advance(1);
    }
    notes.newNote();  // blank: not on the tile
    ASSERT_EQ(view.latest()->count(), static_cast<int>(NotesStore::kLatestShown));
    EXPECT_EQ(role(*view.latest(), 0, "title"), "four");
    EXPECT_EQ(view.filledCount(), 4);
    view.close();  // the panel closing drops the blank note
    EXPECT_EQ(view.notes()->count(), 4);
}

TEST_F(NotesAndTasksViewModels, TasksSplitIntoOpenAndDoneAndTheTileShowsTheFirstOpenOnes) {
    TasksViewModel view(tasks);
    for (const char* title : {"a", "b", "c", "d", "e", "f"}) view.add(QString::fromUtf8(title));
    view.toggle(role(*view.openTasks(), 0, "taskId").toString());
    EXPECT_EQ(view.openCount(), 5);
    EXPECT_EQ(role(*view.doneTasks(), 0, "title"), "a");
    ASSERT_EQ(view.nextTasks()->count(), static_cast<int>(TaskStore::kOpenShown));
    EXPECT_EQ(role(*view.nextTasks(), 0, "title"), "b");
}

}  // namespace
}  // namespace vantrelle::testing
