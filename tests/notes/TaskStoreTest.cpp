#include <gtest/gtest.h>

#include <memory>

#include "NotesTestSupport.h"
#include "fakes/TempDir.h"
#include "notes/NotesJson.h"
#include "notes/TaskStore.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::countedId;

class TaskStoreTest : public ::testing::Test {
protected:
    std::unique_ptr<TaskStore> open(bool demo = false) {
        return std::make_unique<TaskStore>(
            TaskStore::Dependencies{root, dir / "tmp", clock, demo, testing::countingIds()});
    }
    std::vector<TodoItem> stored() const {
        const auto items = NotesJson::decodeTodos(dir.read("Vantrelle/tasks.json"));
        EXPECT_TRUE(items.has_value());
        return items.value_or(std::vector<TodoItem>{});
    }
    static std::vector<std::string> titles(const std::vector<TodoItem>& items) {
        std::vector<std::string> result;
        for (const TodoItem& item : items) result.push_back(item.title);
        return result;
    }

    testing::TempDir dir;
    fs::path root = dir / "Vantrelle";
    fs::path file = root / "tasks.json";
    VirtualScheduler clock{Date{1'900'000'000.0}};
};

TEST_F(TaskStoreTest, EveryChangeIsSavedAtOnceAndSurvivesARestart) {
    {
        auto store = open();
        EXPECT_TRUE(store->add("  Fix rail overflow  "));
        // An open item has no completion key; dates count from 2001-01-01 UTC.
        const std::string text = dir.read("Vantrelle/tasks.json");
        EXPECT_EQ(text.find("completedAt"), std::string::npos) << text;
        EXPECT_NE(text.find("\"createdAt\":921692800"), std::string::npos) << text;
        EXPECT_TRUE(store->add("Record the tour"));
        clock.advance(60);
        store->toggle(countedId(1));
    }
    auto again = open();
    EXPECT_EQ(titles(again->items()), (std::vector<std::string>{"Fix rail overflow", "Record the tour"}));
    EXPECT_EQ(again->items()[0].completedAt, Date{1'900'000'060.0});

    // Undoing clears the completion; doing again gives a new instant.
    again->toggle(countedId(1));
    EXPECT_FALSE(stored()[0].completedAt);
    clock.advance(5);
    again->toggle(countedId(1));
    EXPECT_EQ(stored()[0].completedAt, Date{1'900'000'065.0});
}

TEST_F(TaskStoreTest, AnUndecodableFileGivesAnEmptyListIsKeptAsideAndTheNextChangeWritesAfresh) {
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"not JSON", "[{"},
        {"a title missing", R"([{"id":"00000000-0000-4000-8000-000000000001","isDone":true,"createdAt":1}])"},
    };
    for (const auto& [name, contents] : cases) {
        SCOPED_TRACE(name);
        fs::remove_all(root);
        dir.write("Vantrelle/tasks.json", contents);
        auto store = open();
        EXPECT_TRUE(store->items().empty());
        EXPECT_EQ(testing::unreadableCopies(file).size(), 1u);
        store->add("fresh");
        EXPECT_EQ(titles(stored()), (std::vector<std::string>{"fresh"}));
    }
}

TEST_F(TaskStoreTest, AnotherProgramsSpellingOfTheSameListLoads) {
    // Lower-case ids, a null completion and keys in another order are the same list.
    dir.write(
        "Vantrelle/tasks.json",
        R"([{"createdAt":10.5,"isDone":false,"title":"t","id":"abcdef01-2345-4678-89ab-cdef01234567","completedAt":null}])");
    auto store = open();
    ASSERT_EQ(store->items().size(), 1u);
    EXPECT_EQ(store->items()[0].id, "ABCDEF01-2345-4678-89AB-CDEF01234567");
    EXPECT_EQ(store->items()[0].createdAt, Date{978'307'210.5});
    EXPECT_FALSE(store->items()[0].completedAt);
}

TEST_F(TaskStoreTest, OpenAndDoneKeepListOrderAndClearDoneRemovesOnlyDone) {
    auto store = open();
    for (const char* title : {"a", "b", "c", "d"}) store->add(title);
    store->toggle(countedId(3));
    store->toggle(countedId(1));
    EXPECT_EQ(titles(store->openItems()), (std::vector<std::string>{"b", "d"}));
    EXPECT_EQ(titles(store->doneItems()), (std::vector<std::string>{"a", "c"}));
    store->remove(countedId(4));
    store->clearDone();
    EXPECT_EQ(titles(store->items()), (std::vector<std::string>{"b"}));
    EXPECT_EQ(titles(stored()), (std::vector<std::string>{"b"}));
}

}  // namespace
}  // namespace vantrelle
