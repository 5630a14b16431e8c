#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/FakeImageCodec.h"
#include "fakes/TempDir.h"
#include "files/ImageConverter.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using enum ImageConversion;
using testing::FakeImageCodec;
using testing::TempDir;

TEST(ImageConversionRules, OptionsFollowTypeAndLongestSide) {
    const struct {
        const char* name;
        ImageFileType type;
        std::optional<std::int64_t> side;
        std::vector<ImageConversion> expected;
    } rows[] = {
        {"png 1920", ImageFileType::png, 1920, {jpg, halfSize, compress}},
        {"png 1921", ImageFileType::png, 1921, {jpg, halfSize, max1920, compress}},
        {"jpeg 64", ImageFileType::jpeg, 64, {png, halfSize, compress}},
        {"jpeg 63", ImageFileType::jpeg, 63, {png, compress}},
        {"gif unknown size", ImageFileType::other, std::nullopt, {png, jpg, halfSize, max1920, compress}},
    };
    for (const auto& row : rows) EXPECT_EQ(conversionOptions(row.type, row.side), row.expected) << row.name;
}

TEST(ImageConversionRules, TargetSizeAndType) {
    EXPECT_EQ(targetLongestSide(halfSize, 1), 1);
    EXPECT_EQ(targetLongestSide(halfSize, 1001), 500);
    EXPECT_EQ(targetLongestSide(max1920, 5000), 1920);
    EXPECT_EQ(targetLongestSide(max1920, 1000), 1000);
    EXPECT_EQ(outputType(max1920, ImageFileType::other), ImageFileType::jpeg);
}

class ImageConverterTest : public ::testing::Test {
protected:
    fs::path image(const std::string& relative, ImageFileType type, std::int64_t w, std::int64_t h) {
        const fs::path path = dir.write(relative, "pixels");
        codec.declare(path, type, w, h);
        return path;
    }

    TempDir dir;
    FakeImageCodec codec;
    ImageConverter converter{codec, dir / "Downloads", dir / "data/Converted"};
};

TEST_F(ImageConverterTest, TakenNamesAndTheSourceItselfGetANumber) {
    const fs::path a = image("src/a.png", ImageFileType::png, 10, 10);
    std::vector<fs::path> outputs;
    for (auto conversion : {png, png, jpg, compress, halfSize})
        outputs.push_back(std::get<fs::path>(converter.convert(a, conversion)));
    EXPECT_EQ(outputs,
              (std::vector<fs::path>{dir / "src/a 2.png", dir / "src/a 3.png", dir / "src/a.jpg",
                                     dir / "src/a (compressed).jpg", dir / "src/a (half size).png"}));
}

TEST_F(ImageConverterTest, AFailedWriteLeavesNoPartialFileAndTriesTheNextFolder) {
    const fs::path a = image("src/a.jpg", ImageFileType::jpeg, 10, 10);
    codec.refusedFolder = dir / "src";
    ImageConverter noDownloads{codec, std::nullopt, dir / "data/Converted"};
    EXPECT_EQ(std::get<fs::path>(noDownloads.convert(a, png)), dir / "data/Converted/a.png");
    EXPECT_FALSE(fs::exists(dir / "src/a.png"));
    EXPECT_FALSE(fs::exists(dir / "Downloads"));  // never created: it isn't ours

    ImageConverter nowhere{codec, std::nullopt, dir / "src"};
    EXPECT_EQ(std::get<ImageConverter::Failure>(nowhere.convert(a, png)),
              ImageConverter::Failure::unwritable);
}

TEST_F(ImageConverterTest, UnreadableSourcesFail) {
    for (const fs::path& source : {dir.write("notes.txt", "hello"), dir / "missing.png"}) {
        EXPECT_EQ(std::get<ImageConverter::Failure>(converter.convert(source, png)),
                  ImageConverter::Failure::unreadable)
            << source;
    }
}

}  // namespace
}  // namespace vantrelle
