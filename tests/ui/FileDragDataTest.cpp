#include <gtest/gtest.h>

#include <QUrl>
#include <filesystem>
#include <fstream>

#include "FileDragData.h"
#include "GuiApplication.h"
#include "fakes/TempDir.h"

namespace vantrelle::testing {
namespace {

namespace fs = std::filesystem;

QString qpath(const fs::path& path) {
    return QString::fromStdString(path.string());
}

class FileDrag : public ::testing::Test {
protected:
    FileDrag() { guiApplication(); }
    TempDir dir;
};

TEST_F(FileDrag, CarriesTheAddressInBothFormsAndTheBytesUnderTheFilesOwnType) {
    struct Case {
        const char* name;
        std::string contents;
        const char* type;
    };
    const std::vector<Case> cases{
        {"shot 1.png", std::string("\x89PNG\r\n\x1a\n", 8) + "pixels", "image/png"},
        {"notes #2 (ünï).txt", "plain words\n", "text/plain"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto file = dir.write(c.name, c.contents);
        auto data = FileDragData::make(qpath(file));
        ASSERT_TRUE(data);
        EXPECT_EQ(data->formats(),
                  (QStringList{QStringLiteral("text/uri-list"),
                               QStringLiteral("x-special/gnome-copied-files"), QString::fromLatin1(c.type)}));
        ASSERT_EQ(data->urls().size(), 1);
        EXPECT_EQ(data->urls()[0].toLocalFile(), qpath(file));
        EXPECT_EQ(data->data(QString::fromLatin1(c.type)).toStdString(), c.contents);
        EXPECT_EQ(data->data(QStringLiteral("x-special/gnome-copied-files")),
                  QByteArray("copy\n") + QUrl::fromLocalFile(qpath(file)).toEncoded());
    }
}

TEST_F(FileDrag, ReadsTheBytesOnlyWhenAskedAndNeverPastTheLimit) {
    const auto file = dir.write("clip.txt", "first");
    auto data = FileDragData::make(qpath(file), 16);
    ASSERT_TRUE(data);
    dir.write("clip.txt", "second");
    EXPECT_EQ(data->data(QStringLiteral("text/plain")), "second") << "read at the drop, not at the start";

    dir.write("clip.txt", "grown well past sixteen bytes");
    EXPECT_TRUE(data->data(QStringLiteral("text/plain")).isEmpty());
    EXPECT_EQ(data->urls().size(), 1) << "the address still travels";

    // A large file (sparse: no disk used) offers its address alone.
    const auto big = dir / "disk.img";
    std::ofstream(big).close();
    fs::resize_file(big, static_cast<std::uintmax_t>(ShelfStore::kDragContentLimit) + 1);
    auto bigData = FileDragData::make(qpath(big));
    ASSERT_TRUE(bigData);
    EXPECT_TRUE(bigData->contentType().isEmpty());
    EXPECT_EQ(bigData->formats().size(), 2);
}

TEST_F(FileDrag, NothingToDragForMissingFilesAndFolders) {
    fs::create_directories(dir / "folder");
    for (const QString& path : {QString(), qpath(dir / "gone.txt"), qpath(dir / "folder")})
        EXPECT_FALSE(FileDragData::make(path)) << path.toStdString();
}

}  // namespace
}  // namespace vantrelle::testing
