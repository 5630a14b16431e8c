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

struct FileDrag : ::testing::Test {
    QGuiApplication& app = guiApplication();
    TempDir dir;
};

TEST_F(FileDrag, CarriesTheAddressInBothFormsAndTheBytesUnderTheFilesOwnType) {
    const auto file = dir.write("shot 1 (ünï).png", std::string("\x89PNG\r\n\x1a\n", 8) + "pixels");
    auto data = FileDragData::make(qpath(file));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->formats(),
              (QStringList{QStringLiteral("text/uri-list"), QStringLiteral("x-special/gnome-copied-files"),
                           QStringLiteral("image/png")}));
    EXPECT_EQ(data->urls(), QList<QUrl>{QUrl::fromLocalFile(qpath(file))});
    EXPECT_EQ(data->data(QStringLiteral("image/png")).toStdString(), dir.read("shot 1 (ünï).png"));
    EXPECT_EQ(data->data(QStringLiteral("x-special/gnome-copied-files")),
              QByteArray("copy\n") + QUrl::fromLocalFile(qpath(file)).toEncoded());
}

TEST_F(FileDrag, ReadsTheBytesOnlyWhenAskedNeverPastTheLimitAndNeverForMissingFilesOrFolders) {
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
    EXPECT_EQ(bigData->formats().size(), 2);

    // Nothing to drag for no path, a missing file or a folder.
    for (const QString& path : {QString(), qpath(dir / "gone.txt"), qpath(dir.path())})
        EXPECT_FALSE(FileDragData::make(path)) << path.toStdString();
}

}  // namespace
}  // namespace vantrelle::testing
