#include <gtest/gtest.h>

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QPainter>

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

// Left half red, right half blue, so a turn shows where the left went.
QImage halves(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, width / 2, height, Qt::red);
    painter.fillRect(width / 2, 0, width - width / 2, height, Qt::blue);
    return image;
}

// A JPEG whose EXIF says "turn 90° clockwise to show" (orientation 6), in an APP1 segment written
// here byte by byte, right after the start-of-image marker.
QByteArray rotatedJpeg(const QImage& stored) {
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    stored.save(&buffer, "JPEG", 95);
    const char exif[] = {'\xFF', '\xE1', 0,   34,                           // APP1, length 34 with itself
                         'E',    'x',    'i', 'f', 0, 0,                    // Exif header
                         'M',    'M',    0,   42,  0, 0, 0, 8,              // big-endian TIFF, first IFD at 8
                         0,      1,                                         // one entry
                         1,      0x12,   0,   3,   0, 0, 0, 1, 0, 6, 0, 0,  // Orientation, SHORT, 1 value: 6
                         0,      0,      0,   0};                           // no next IFD
    jpeg.insert(2, exif, sizeof(exif));
    return jpeg;
}

bool near(QColor a, QColor b) {
    return std::abs(a.red() - b.red()) < 40 && std::abs(a.green() - b.green()) < 40 &&
           std::abs(a.blue() - b.blue()) < 40;
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
    EXPECT_EQ(QImage(qt(converted(save("shot.png", halves(200, 100), "PNG"), halfSize))).size(),
              QSize(100, 50));
    const fs::path wide = converted(save("wide.jpg", halves(2400, 1200), "JPEG"), max1920);
    EXPECT_EQ(wide, dir / "wide (1920px).jpg");
    QImageReader limited(qt(wide));
    EXPECT_EQ(limited.format(), "jpeg");
    EXPECT_EQ(limited.size(), QSize(1920, 960));
}

TEST_F(QtImageCodecTest, AnExifTurnedJpegComesOutUpright) {
    const fs::path photo = dir / "photo.jpg";
    {
        QFile file(qt(photo));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(rotatedJpeg(halves(40, 20)));
    }
    const QImage upright(qt(converted(photo, ImageConversion::png)));
    ASSERT_EQ(upright.size(), QSize(20, 40));
    EXPECT_TRUE(near(upright.pixelColor(10, 5), Qt::red));  // the stored left is now the top
    EXPECT_TRUE(near(upright.pixelColor(10, 35), Qt::blue));
}

TEST_F(QtImageCodecTest, TransparencyBecomesWhiteInAJpeg) {
    QImage clear(32, 32, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    const fs::path png = save("clear.png", clear, "PNG");
    const QImage jpeg(qt(converted(png, compress)));
    EXPECT_FALSE(jpeg.hasAlphaChannel());
    EXPECT_TRUE(near(jpeg.pixelColor(16, 16), Qt::white));
}

TEST_F(QtImageCodecTest, OptionsReadOnlyTheHeader) {
    EXPECT_EQ(converter.options(save("w1920.png", halves(1920, 10), "PNG")),
              (std::vector<ImageConversion>{jpg, halfSize, compress}));
    EXPECT_EQ(converter.options(save("w1921.jpg", halves(1921, 10), "JPEG")),
              (std::vector<ImageConversion>{ImageConversion::png, halfSize, max1920, compress}));
}

TEST_F(QtImageCodecTest, NoImageNoOutputAndAFailedWriteLeavesNothing) {
    const fs::path text = dir.write("notes.png", "not really a png");
    EXPECT_EQ(std::get<ImageConverter::Failure>(converter.convert(text, jpg)),
              ImageConverter::Failure::unreadable);
    const auto image = codec.decode(save("a.png", halves(4, 4), "PNG"), 4);
    ASSERT_TRUE(image);
    EXPECT_FALSE(codec.encode(*image, dir / "missing-folder/a.jpg", ImageFileType::jpeg, 0.9));
    EXPECT_FALSE(fs::exists(dir / "missing-folder"));
}

}  // namespace
}  // namespace vantrelle
