#include <gtest/gtest.h>

#include "fakes/TempDir.h"
#include "media/DesktopPlayerApps.h"

namespace vantrelle {
namespace {

TEST(DesktopPlayerApps, SplitsExecLinesAndDropsFieldCodes) {
    struct Row {
        const char* exec;
        QStringList parts;
    };
    const Row rows[] = {
        {"\"/opt/My Player/player\" --minimized %f",
         {QStringLiteral("/opt/My Player/player"), QStringLiteral("--minimized")}},
        {"env  A=\"b c\"  rhythmbox",
         {QStringLiteral("env"), QStringLiteral("A=b c"), QStringLiteral("rhythmbox")}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DesktopPlayerApps::splitExec(QString::fromUtf8(row.exec)), row.parts) << row.exec;
}

TEST(DesktopPlayerApps, OpensTheFirstInstalledPlayerOfTheSource) {
    testing::TempDir dir;
    dir.write(
        "spotify.desktop",
        "[Desktop Entry]\nName=Spotify\nExec=spotify %U\n[Desktop Action Pause]\nExec=spotify --pause\n");
    dir.write("rhythmbox.desktop", "[Desktop Entry]\nName=Rhythmbox\nHidden=true\nExec=rhythmbox %U\n");
    dir.write("org.kde.elisa.desktop", "[Desktop Entry]\nName=Elisa\nExec=elisa %f\n");
    QStringList started;
    DesktopPlayerApps apps(
        [&](const QString& id) {
            const auto path = dir / id.toStdString();
            return std::filesystem::exists(path) ? QString::fromStdString(path.string()) : QString();
        },
        [&](const QString& program, const QStringList& arguments) {
            started << (QStringList{program} + arguments).join(QLatin1Char(' '));
            return true;
        });
    EXPECT_EQ(apps.installedName(MediaSource::spotify), "Spotify");
    EXPECT_EQ(apps.installedName(MediaSource::music), "Elisa");  // a hidden entry doesn't count
    apps.open(MediaSource::spotify);
    apps.open(MediaSource::music);
    EXPECT_EQ(started, (QStringList{QStringLiteral("spotify"), QStringLiteral("elisa")}));
}

}  // namespace
}  // namespace vantrelle
