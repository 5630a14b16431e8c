#include <gtest/gtest.h>

#include <QImage>
#include <QImageReader>

#include "QtImageCodec.h"
#include "TestApplication.h"
#include "fakes/TempDir.h"
#include "files/ImageConverter.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using enum ImageConversion;
using testing::TempDir;

QString qt(const fs::path& path) {
    return QString::fromStdString(path.string());
}

QImage filled(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

class QtImageCodecTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { testing::testApplication(); }

    fs::path save(const std::string& name, const QImage& image, const char* format) {
        const fs::path path = dir / name;
        EXPECT_TRUE(image.save(qt(path), format));
        return path;
    }
    fs::path converted(const fs::path& source, ImageConversion conversion) {
        auto result = converter.convert(source, conversion);
        EXPECT_TRUE(std::holds_alternative<fs::path>(result));
        return std::holds_alternative<fs::path>(result) ? std::get<fs::path>(result) : fs::path();
    }

    TempDir dir;
    QtImageCodec codec;
    ImageConverter converter{codec, dir / "Downloads", dir / "Converted"};
};

TEST_F(QtImageCodecTest, OutputsHaveTheirSizeAndType) {
    EXPECT_EQ(QImage(qt(converted(save("shot.png", filled(200, 100), "PNG"), halfSize))).size(),
              QSize(100, 50));
    const fs::path wide = converted(save("wide.jpg", filled(2400, 1200), "JPEG"), max1920);
    EXPECT_EQ(wide, dir / "wide (1920px).jpg");
    QImageReader limited(qt(wide));
    EXPECT_EQ(limited.format(), "jpeg");
    EXPECT_EQ(limited.size(), QSize(1920, 960));
}

TEST_F(QtImageCodecTest, NoImageNoOutputAndAFailedWriteLeavesNothing) {
    const fs::path text = dir.write("notes.png", "not really a png");
    EXPECT_EQ(std::get<ImageConverter::Failure>(converter.convert(text, jpg)),
              ImageConverter::Failure::unreadable);
    const auto image = codec.decode(save("a.png", filled(4, 4), "PNG"), 4);
    ASSERT_TRUE(image);
    EXPECT_FALSE(codec.encode(*image, dir / "missing-folder/a.jpg", ImageFileType::jpeg, 0.9));
    EXPECT_FALSE(fs::exists(dir / "missing-folder"));
}

}  // namespace
}  // namespace vantrelle
