#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "fakes/FakeFileWatcher.h"
#include "fakes/FakeImageCodec.h"
#include "fakes/TempDir.h"
#include "files/ScreenCapture.h"
#include "files/ScreenshotWatcher.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

void chunk(std::string& png, const std::string& type, const std::string& data) {
    const auto length = static_cast<std::uint32_t>(data.size());
    for (int shift : {24, 16, 8, 0}) png.push_back(static_cast<char>((length >> shift) & 0xff));
    png += type + data + std::string(4, '\0');  // the reader doesn't check CRCs
}

// A PNG file as far as its chunks go: header, the given text chunks, a data chunk, the end.
std::string png(const std::vector<std::pair<std::string, std::string>>& textChunks) {
    std::string out("\x89PNG\r\n\x1a\n", 8);
    chunk(out, "IHDR", std::string(13, '\1'));
    for (const auto& [type, data] : textChunks) chunk(out, type, data);
    chunk(out, "IDAT", std::string(100, '\0'));
    chunk(out, "IEND", "");
    return out;
}

std::string text(const std::string& keyword, const std::string& value) {
    return keyword + std::string(1, '\0') + value;
}

TEST(ScreenCapture, KnownToolsInTheSoftwareTextCountAndNothingElse) {
    TempDir dir;
    const std::string itxt = std::string("Software") + '\0' + '\0' + '\0' + "en" + '\0' + '\0' + "Spectacle";
    const std::vector<std::tuple<std::string, std::string, bool>> rows{
        {"kde.png", png({{"iTXt", itxt}}), true},
        {"flameshot.png", png({{"tEXt", text("Title", "x")}, {"tEXt", text("Software", "Flameshot")}}), true},
        {"grimoire.png", png({{"tEXt", text("Software", "grimoire")}}), false},
        {"comment.png", png({{"tEXt", text("Comment", "grim")}}), false},
        {"truncated.png", png({{"tEXt", text("Software", "grim")}}).substr(0, 40), false},
        {"not-a-png.png", "hello", false},
    };
    for (const auto& [name, bytes, expected] : rows)
        EXPECT_EQ(isScreenCapture(dir.write(name, bytes)), expected) << name;
}

class ScreenshotEngineTest : public ::testing::Test, protected testing::AppBasics {
protected:
    void SetUp() override {
        engine.onCapture = [this](const fs::path& file) { captures.push_back(file); };
    }
    void shot(const std::string& name) { dir.write(name, png({{"tEXt", text("Software", "grim")}})); }

    TempDir dir;
    InlineQueueFactory queues;
    testing::FakeFileWatcher watcher;
    ScreenshotScanEngine engine{{scheduler, queues, watcher, isScreenCapture}};
    std::vector<fs::path> captures;
};

TEST_F(ScreenshotEngineTest, OnlyNewCapturesAreReportedOnce) {
    shot("before.png");
    engine.start(dir.path());
    shot("new.png");
    dir.write("copied.png", png({}));
    watcher.wakeFolder();
    scheduler.advance(0.4);
    watcher.wakeFolder();  // a burst within 0.5 s: one scan, 0.5 s after the last event
    scheduler.advance(0.4);
    EXPECT_TRUE(captures.empty());
    scheduler.advance(0.1);
    EXPECT_EQ(captures, (std::vector<fs::path>{dir / "new.png"}));

    shot("copied.png");
    watcher.wakeFolder();
    scheduler.advance(1.0);
    EXPECT_EQ(captures.size(), 1u) << "a copied image that gains the mark later is never looked at again";
}

TEST_F(ScreenshotEngineTest, ADeletedNameCanBeANewCapture) {
    engine.start(dir.path());
    shot("a.png");
    watcher.wakeFolder();
    scheduler.advance(0.5);
    fs::remove(dir / "a.png");
    watcher.wakeFolder();
    scheduler.advance(0.5);
    shot("a.png");
    watcher.wakeFolder();
    scheduler.advance(0.5);
    EXPECT_EQ(captures, (std::vector<fs::path>{dir / "a.png", dir / "a.png"}));
}

TEST_F(ScreenshotEngineTest, TheWatcherPutsCapturesOnTheShelfOnlyWhileTheSettingIsOn) {
    testing::FakeImageCodec codec;
    ImageConverter converter{codec, std::nullopt, dir / "Converted"};
    TempDir shelfDir;
    ShelfStore shelf{
        {shelfDir / "shelf.json", scheduler, scheduler, queues, activities, converter, false, {}}};
    ScreenshotWatcher screenshots({{scheduler, queues, watcher, isScreenCapture},
                                   settings,
                                   shelf,
                                   [this] { return dir.path(); },
                                   false});
    screenshots.apply();
    shot("one.png");
    watcher.wakeFolder();
    scheduler.advance(0.5);
    ASSERT_EQ(shelf.items().size(), 1u);

    settings.setAddScreenshotsToShelf(false);
    screenshots.apply();
    EXPECT_FALSE(screenshots.engine().isWatching());
}

}  // namespace
}  // namespace vantrelle
