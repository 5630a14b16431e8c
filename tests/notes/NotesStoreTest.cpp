#include <gtest/gtest.h>
#include <sys/stat.h>

#include <memory>

#include "NotesTestSupport.h"
#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "notes/NotesJson.h"
#include "notes/NotesStore.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::countedId;

class NotesStoreTest : public ::testing::Test {
protected:
    std::unique_ptr<NotesStore> open(bool demo = false) {
        return std::make_unique<NotesStore>(NotesStore::Dependencies{
            root, dir / "tmp", clock, clock, notifications, demo, testing::countingIds()});
    }
    // What the file holds now, as a fresh start would read it.
    std::vector<Note> stored() const {
        const auto notes = NotesJson::decodeNotes(dir.read("Vantrelle/notes.json"));
        EXPECT_TRUE(notes.has_value());
        return notes.value_or(std::vector<Note>{});
    }
    static std::vector<std::string> bodies(const std::vector<Note>& notes) {
        std::vector<std::string> result;
        for (const Note& note : notes) result.push_back(note.body);
        return result;
    }

    testing::TempDir dir;
    fs::path root = dir / "Vantrelle";
    fs::path file = root / "notes.json";
    VirtualScheduler clock{Date{1'900'000'000.0}};
    NotificationCenter notifications;
};

TEST_F(NotesStoreTest, OnlyTheLastEditOfABurstSavesAndQuittingBeforeTheDebounceKeepsTheEdit) {
    auto store = open();
    const Date start = clock.now();
    for (const char* text : {"a", "ab", "abc"}) {
        store->setText(text);
        clock.advance(0.5);
    }
    clock.advance(0.09);
    EXPECT_FALSE(fs::exists(file));
    clock.advance(0.01);
    EXPECT_EQ(store->lastSaved(), start + 1.6);
    EXPECT_EQ(stored().at(0).body, "abc");
    store->setText("abc");
    EXPECT_FALSE(store->hasPendingSave()) << "the same text again is no edit";

    store->setText("abc notes");
    clock.advance(0.3);
    EXPECT_EQ(stored().at(0).body, "abc");  // the debounce hasn't fired yet
    notifications.post(Notifications::applicationWillTerminate);
    store.reset();
    EXPECT_EQ(open()->notes().at(0).body, "abc notes");
}

TEST_F(NotesStoreTest, NotesSurviveARestartNewestFirstWithTheirDates) {
    {
        auto store = open();
        store->setText("first");
        clock.advance(10);
        store->newNote("second");
        clock.advance(5);
        store->select(countedId(1));
        store->setText("first, edited");
        clock.advance(1);
    }
    auto again = open();
    ASSERT_EQ(bodies(again->notes()), (std::vector<std::string>{"second", "first, edited"}));
    EXPECT_EQ(again->notes()[1].createdAt, Date{1'900'000'000.0});
    EXPECT_EQ(again->notes()[1].updatedAt, Date{1'900'000'015.0});
    EXPECT_FALSE(again->selectedId());
    again->ensureSelection();
    EXPECT_EQ(again->selectedId(), countedId(2)) << "the first note is picked";
}

TEST_F(NotesStoreTest, AnUnreadableFileIsMovedAsideAndTheNextSaveStartsAFreshOne) {
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"not JSON", "{\"id\": "},
        {"a note without a body",
         R"([{"id":"00000000-0000-4000-8000-000000000001","createdAt":1,"updatedAt":1}])"},
        {"deeply nested", std::string(100'000, '[')},
    };
    for (const auto& [name, contents] : cases) {
        SCOPED_TRACE(name);
        fs::remove_all(root);
        dir.write("Vantrelle/notes.json", contents);
        auto store = open();
        EXPECT_TRUE(store->notes().empty());
        const auto copies = testing::unreadableCopies(file);
        ASSERT_EQ(copies.size(), 1u);
        EXPECT_EQ(dir.read(fs::relative(copies[0], dir.path()).string()), contents);
        store->setText("fresh");
        clock.advance(1);
        EXPECT_EQ(stored().at(0).body, "fresh");
    }
}

TEST_F(NotesStoreTest, TheLegacyMarkdownFileBecomesOneNoteAndIsMovedAsideOnce) {
    const fs::path legacy = dir.write("Vantrelle/notes.md", "# Ideas\n- one\n");
    const auto modified = fs::file_time_type::clock::now() - std::chrono::hours(30);
    fs::last_write_time(legacy, modified);
    {
        auto store = open();
        ASSERT_EQ(store->notes().size(), 1u);
        EXPECT_EQ(store->notes()[0].body, "# Ideas\n- one\n");
        // The file's own modification time, not the store's clock.
        const auto expected =
            std::chrono::duration<double>(std::chrono::file_clock::to_sys(modified).time_since_epoch());
        EXPECT_NEAR(store->notes()[0].updatedAt.seconds, expected.count(), 0.001);
        EXPECT_EQ(stored(), store->notes());
    }
    EXPECT_FALSE(fs::exists(legacy));
    EXPECT_EQ(dir.read("Vantrelle/notes.md.migrated"), "# Ideas\n- one\n");
    EXPECT_EQ(open()->notes().size(), 1u) << "the second start adds nothing";

    // An unreadable file falls back to the legacy one, and is kept aside too.
    dir.write("Vantrelle/notes.json", "garbage");
    dir.write("Vantrelle/notes.md", "kept");
    EXPECT_EQ(bodies(open()->notes()), std::vector<std::string>{"kept"});
    EXPECT_EQ(testing::unreadableCopies(file).size(), 1u);
}

TEST_F(NotesStoreTest, DeletingTheSelectionMovesItToItsNeighbourAndSavesAtOnce) {
    auto store = open();
    for (const char* body : {"d", "c", "b", "a"}) {
        store->newNote(body);
        clock.advance(1);
    }
    // Order: a(4) b(3) c(2) d(1).
    store->select(countedId(3));
    store->remove(countedId(3));
    EXPECT_EQ(store->current()->body, "c");  // the note now in its place
    EXPECT_EQ(stored().size(), 3u);          // saved without waiting
    store->remove(countedId(1));
    EXPECT_EQ(store->current()->body, "c") << "deleting another note keeps the selection";
    store->remove(countedId(2));
    EXPECT_EQ(store->current()->body, "a");  // nothing after it: the one before
}

TEST_F(NotesStoreTest, DemoModeShowsCannedNotesAndWritesNothing) {
    dir.write("Vantrelle/notes.json",
              NotesJson::encodeNotes({{countedId(1), "private", clock.now(), clock.now()}}));
    auto store = open(/*demo=*/true);
    ASSERT_FALSE(store->notes().empty());
    EXPECT_NE(store->notes()[0].body, "private");
    store->ensureSelection();
    store->setText("typed in a recording");
    clock.advance(1);
    notifications.post(Notifications::applicationWillTerminate);
    store->remove(store->notes().back().id);
    EXPECT_FALSE(fs::exists(dir / "tmp"));
    EXPECT_EQ(stored().at(0).body, "private");
}

// A kill in the middle of a save can't leave half a file: the save writes beside it and renames.
TEST_F(NotesStoreTest, ASaveReplacesTheFileWholeAndKeepsItsMode) {
    auto store = open();
    store->setText("first");
    clock.advance(1);
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    struct stat before {};
    ASSERT_EQ(::stat(file.c_str(), &before), 0);
    store->setText("second");
    clock.advance(1);
    struct stat after {};
    ASSERT_EQ(::stat(file.c_str(), &after), 0);
    EXPECT_NE(after.st_ino, before.st_ino) << "written in place";
    EXPECT_EQ(after.st_mode & 0777, 0600u);
    EXPECT_EQ(stored().at(0).body, "second");
}

TEST_F(NotesStoreTest, AFailedSaveIsLoggedAndLeavesTheNotesAsTheyAre) {
    testing::LogCapture log;
    auto store = open();
    // A folder where the file belongs can't be replaced by a file.
    fs::create_directories(file / "in-the-way");
    store->setText("unsaved");
    clock.advance(1);
    EXPECT_FALSE(store->lastSaved());
    EXPECT_EQ(store->current()->body, "unsaved");
    EXPECT_NE(log.text().find("notes: save failed: "), std::string::npos) << log.text();
}

}  // namespace
}  // namespace vantrelle
