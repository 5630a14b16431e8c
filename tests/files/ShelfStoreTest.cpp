#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "fakes/FakeImageCodec.h"
#include "fakes/ManualQueue.h"
#include "fakes/TempDir.h"
#include "files/FileUrl.h"
#include "files/ShelfStore.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::FakeImageCodec;
using testing::ManualQueueFactory;
using testing::TempDir;

class ShelfStoreTest : public ::testing::Test {
protected:
    std::unique_ptr<ShelfStore> makeStore(bool demo = false, std::vector<fs::path> demoFiles = {}) {
        return std::make_unique<ShelfStore>(ShelfStore::Dependencies{dir / "data/shelf.json", scheduler,
                                                                     scheduler, queues, activities, converter,
                                                                     demo, std::move(demoFiles)});
    }

    fs::path file(const std::string& name) { return dir.write("files/" + name, "contents of " + name); }

    static std::vector<std::string> names(const ShelfStore& store) {
        std::vector<std::string> out;
        for (const auto& item : store.items()) out.push_back(item.name);
        return out;
    }

    nlohmann::json storedJson() { return nlohmann::json::parse(dir.read("data/shelf.json")); }

    TempDir dir;
    VirtualScheduler scheduler;
    ManualQueueFactory queues;
    LiveActivityCenter activities{scheduler};
    FakeImageCodec codec;
    ImageConverter converter{codec, std::nullopt, dir / "data/Converted"};
};

TEST_F(ShelfStoreTest, NewestFirstAndTheThirtyFirstPushesOutTheOldest) {
    auto store = makeStore();
    for (int i = 1; i <= 29; ++i) store->add({file("f" + std::to_string(i))});
    store->add({file("a"), file("b")});  // one call puts its last file on top
    ASSERT_EQ(store->items().size(), 30u);
    EXPECT_EQ(names(*store)[0], "b");
    EXPECT_EQ(store->items().back().name, "f2");
    auto json = storedJson();
    json.push_back(json[0]);
    dir.write("data/shelf.json", json.dump());
    EXPECT_EQ(makeStore()->items().size(), 30u) << "a longer file is cut to thirty";
}

TEST_F(ShelfStoreTest, EachFileIsAddedOnceHoweverItIsSpelledAndOnlyRealFilesAtAll) {
    auto store = makeStore();
    store->add({dir / "files/nothing-here", "relative.txt"});
    EXPECT_FALSE(fs::exists(dir / "data/shelf.json")) << "an add that adds nothing writes nothing";
    const fs::path a = file("a.txt");
    store->add({a, a, dir / "files/../files/./a.txt"});
    store->addUrls(
        {fileUrlFromPath(a), "https://example.org/a.txt", "not a url", fileUrlFromPath(file("b c%.txt"))});
    EXPECT_EQ(names(*store), (std::vector<std::string>{"b c%.txt", "a.txt"}));
}

// How a bookmark resolves is FileBookmark's; here, that items follow it and a file back at its path is
// the same item.
TEST_F(ShelfStoreTest, ItemsFollowTheirFileAndAFileBackAtItsPathIsTheSameItem) {
    auto store = makeStore();
    const fs::path a = file("a.txt");
    store->add({a});
    fs::rename(a, dir / "files/final.txt");
    EXPECT_EQ(store->items().front().url(), dir / "files/final.txt");
    fs::remove(dir / "files/final.txt");
    EXPECT_EQ(store->items().front().url(), std::nullopt);
    file("a.txt");  // as editors save: a new file renamed over the old
    store->add({a});
    EXPECT_EQ(store->items().size(), 1u);
}

TEST_F(ShelfStoreTest, ItemsSurviveARestartWithTheirIdsAndDates) {
    scheduler.setNow(Date{978'307'200.0 + 100.0});
    {
        auto store = makeStore();
        store->add({file("a"), file("b")});
    }
    EXPECT_DOUBLE_EQ(storedJson()[0]["addedAt"].get<double>(), 100.0);  // seconds since 2001

    auto reopened = makeStore();
    EXPECT_EQ(names(*reopened), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(reopened->items()[1].url(), dir / "files/a");
    reopened->remove(reopened->items().front().id);
    EXPECT_EQ(names(*makeStore()), (std::vector<std::string>{"a"}));
}

TEST_F(ShelfStoreTest, AnUnreadableFileIsMovedAsideAndTheShelfStartsEmpty) {
    for (const std::string text : {"{not json", R"([{"id":"x","name":"a"}])",
                                   R"([{"id":"x","bookmark":"***","name":"a","addedAt":0}])"}) {
        SCOPED_TRACE(text);
        TempDir fresh;
        fresh.write("shelf.json", text);
        ShelfStore store(ShelfStore::Dependencies{
            fresh / "shelf.json", scheduler, scheduler, queues, activities, converter, false, {}});
        EXPECT_TRUE(store.items().empty());
        EXPECT_FALSE(fs::exists(fresh / "shelf.json"));
        EXPECT_EQ(testing::unreadableCopies(fresh / "shelf.json").size(), 1u);
    }
}

TEST_F(ShelfStoreTest, DemoModeStartsFromTheSamplesAndWritesNothing) {
    auto store = makeStore(true, {file("sample-1.png"), file("sample-2.md")});
    EXPECT_EQ(names(*store), (std::vector<std::string>{"sample-2.md", "sample-1.png"}));
    store->add({file("more")});
    EXPECT_FALSE(fs::exists(dir / "data/shelf.json"));
}

TEST_F(ShelfStoreTest, AMessageStaysFourSecondsFromTheLatestOne) {
    auto store = makeStore();
    store->showMessage("first");
    scheduler.advance(3.0);
    store->showMessage("second");
    scheduler.advance(3.9);
    EXPECT_EQ(store->convertMessage(), "second");
    scheduler.advance(0.1);
    EXPECT_EQ(store->convertMessage(), std::nullopt);
}

TEST_F(ShelfStoreTest, OneConversionAtATimePerItem) {
    auto store = makeStore();
    const fs::path photo = file("photo.png");
    codec.declare(photo, ImageFileType::png, 400, 300);
    store->add({photo});
    const std::string id = store->items().front().id;
    store->setConverting(id);

    store->convert(id, ImageConversion::jpg);
    EXPECT_EQ(store->converting(), std::nullopt);  // the strip closes
    store->convert(id, ImageConversion::compress);
    EXPECT_EQ(queues.waiting(), 1u);

    queues.runAll();
    scheduler.runUntilIdle();
    EXPECT_FALSE(store->busy().contains(id));
    EXPECT_EQ(store->convertMessage(), "Saved photo.jpg, 5 bytes");
    EXPECT_EQ(store->items().size(), 1u);  // the output isn't added
}

TEST(FileSizeText, DecimalUnitsAsFileManagersShowThem) {
    const std::vector<std::pair<std::uintmax_t, std::string>> rows{
        {0, "Zero KB"}, {1, "1 byte"},       {999, "999 bytes"},
        {1000, "1 KB"}, {999'999, "1.0 MB"}, {2'500'000'000, "2.5 GB"}};
    for (const auto& [bytes, text] : rows) EXPECT_EQ(formatFileSize(bytes), text) << bytes;
}

}  // namespace
}  // namespace vantrelle
