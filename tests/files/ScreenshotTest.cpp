#include <gtest/gtest.h>

#include <fstream>

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
        {"gnome.png", png({{"tEXt", text("Software", "gnome-screenshot")}}), true},
        {"kde.png", png({{"iTXt", itxt}}), true},
        {"flameshot.png", png({{"tEXt", text("Title", "x")}, {"tEXt", text("Software", "Flameshot")}}), true},
        {"grim.png", png({{"tEXt", text("Software", "grim")}}), true},
        {"scrot.png", png({{"tEXt", text("Software", "scrot 1.7")}}), true},
        {"grimoire.png", png({{"tEXt", text("Software", "grimoire")}}), false},
        {"comment.png", png({{"tEXt", text("Comment", "gnome-screenshot")}}), false},
        {"plain.png", png({}), false},
        {"truncated.png", png({{"tEXt", text("Software", "grim")}}).substr(0, 40), false},
        {"not-a-png.png", "hello", false},
    };
    for (const auto& [name, bytes, expected] : rows)
        EXPECT_EQ(isScreenCapture(dir.write(name, bytes)), expected) << name;
}

TEST(ScreenCapture, CaptureFolderOrder) {
    TempDir dir;
    AppPaths paths{dir / "home", dir / "home/.local/share", dir / "home/.config", dir / "home/.cache"};
    MapEnvironment environment;
    EXPECT_EQ(screenshotFolder(environment, paths), dir / "home/Pictures");

    dir.write("home/.config/user-dirs.dirs", "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    EXPECT_EQ(screenshotFolder(environment, paths), dir / "home/Bilder");

    fs::create_directories(dir / "home/Shots");
    dir.write("home/.config/spectaclerc",
              "[ImageSave]\nimageSaveLocation=file://" + (dir / "home/Shots").string() + "\n");
    EXPECT_EQ(screenshotFolder(environment, paths), dir / "home/Shots");

    fs::create_directories(dir / "home/Bilder/Screenshots");
    EXPECT_EQ(screenshotFolder(environment, paths), dir / "home/Bilder/Screenshots");

    environment.set("VANTRELLE_SCREENSHOT_DIR", (dir / "nowhere").string());
    EXPECT_EQ(screenshotFolder(environment, paths), dir / "nowhere");
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
    scheduler.advance(0.2);
    EXPECT_EQ(captures, (std::vector<fs::path>{dir / "new.png"}));

    // A copied image that gains the mark later is never looked at again.
    shot("copied.png");
    watcher.wakeFolder();
    scheduler.advance(1.0);
    EXPECT_EQ(captures.size(), 1u);
}

TEST_F(ScreenshotEngineTest, ADeletedNameCanBeANewCaptureAndAStopAndStartTakesAFreshListing) {
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
    EXPECT_EQ(captures.size(), 2u);

    engine.stop();
    shot("meanwhile.png");
    engine.start(dir.path());
    shot("after.png");
    watcher.wakeFolder();
    scheduler.advance(0.5);
    EXPECT_EQ(captures.back(), dir / "after.png");
    EXPECT_EQ(captures.size(), 3u) << "what came while stopped is part of the fresh listing";
}

class ScreenshotWatcherTest : public ScreenshotEngineTest {
protected:
    ScreenshotWatcher make(bool demo) {
        return ScreenshotWatcher({{scheduler, queues, watcher, isScreenCapture},
                                  settings,
                                  shelf,
                                  [this] { return dir.path(); },
                                  demo});
    }

    testing::FakeImageCodec codec;
    ImageConverter converter{codec, std::nullopt, dir / "Converted"};
    TempDir shelfDir;
    ShelfStore shelf{
        {shelfDir / "shelf.json", scheduler, scheduler, queues, activities, converter, false, {}}};
};

TEST_F(ScreenshotWatcherTest, RunsOnlyWithTheSettingOnAndOutsideDemoMode) {
    auto demo = make(true);
    demo.apply();
    EXPECT_FALSE(demo.started());

    auto screenshots = make(false);
    screenshots.apply();
    EXPECT_TRUE(screenshots.engine().isWatching());
    shot("one.png");
    watcher.wakeFolder();
    scheduler.advance(0.5);
    ASSERT_EQ(shelf.items().size(), 1u);
    EXPECT_EQ(shelf.items()[0].name, "one.png");

    settings.setAddScreenshotsToShelf(false);
    screenshots.apply();
    EXPECT_FALSE(screenshots.started());
    EXPECT_FALSE(screenshots.engine().isWatching());
}

}  // namespace
}  // namespace vantrelle
