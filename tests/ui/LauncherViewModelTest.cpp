#include <gtest/gtest.h>

#include "DayProgressViewModel.h"
#include "GuiApplication.h"
#include "LauncherIconProvider.h"
#include "LauncherViewModel.h"
#include "fakes/AppBasics.h"
#include "fakes/FakeProcessRunner.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle::testing {
namespace {

class LauncherViewModels : public ::testing::Test {
protected:
    LauncherViewModels() {
        guiApplication();
        dir.write("apps/my app.desktop",
                  "[Desktop Entry]\nType=Application\nName=My App\nIcon=/no/such icon.png\n");
        dir.write("appletsrc", "launchers=applications:my app.desktop\n");
        model.start();
        clock.runUntilIdle();
    }
    VirtualScheduler clock;
    InlineQueueFactory queues;
    FakeProcessRunner runner;
    TempDir dir;
    LauncherModel model{
        {clock, queues, runner, clock, {dir / "apps"}, dir / "appletsrc", "KDE", dir / "none", {}}};
};

TEST_F(LauncherViewModels, AClickStartsTheAppAndFoldsTheNotchAway) {
    int collapses = 0;
    LauncherViewModel view(model, [&] { ++collapses; });
    ASSERT_EQ(view.apps()->count(), 1);
    EXPECT_EQ(view.apps()->rows()[0].iconSource,
              QStringLiteral("image://launcher/%2Fno%2Fsuch%20icon.png/M"));

    runner.calls.clear();
    view.launch(QStringLiteral("my app"));
    EXPECT_EQ(collapses, 1);
    EXPECT_EQ(runner.calls.size(), 1U);
    view.launch(QStringLiteral("not listed"));
    EXPECT_EQ(collapses, 1);
}

TEST_F(LauncherViewModels, AnIconThatCannotBeFoundStillDrawsSomething) {
    LauncherIconProvider provider;
    QSize size;
    for (const QString& id : {QStringLiteral("%2Fno%2Fsuch%20icon.png/M"),
                              QStringLiteral("no-such-icon-name"), QString(), QStringLiteral("%%%")}) {
        SCOPED_TRACE(id.toStdString());
        const QImage image = provider.requestImage(id, &size, QSize(32, 32));
        EXPECT_FALSE(image.isNull());
        EXPECT_FALSE(size.isEmpty());
        EXPECT_LE(size.width(), 32);
    }
}

struct DayProgressViewModelTest : ::testing::Test, AppBasics {};

TEST_F(DayProgressViewModelTest, ShareCopiesAndSaysSoUntilTheFiguresMove) {
    guiApplication();
    TempDir dir;
    CursorMileage mileage(dir / "mileage.json", scheduler, false);
    struct : Clipboard {
        void setText(const std::string& value) override { text = value; }
        std::string text;
    } clipboard;
    MileageShare share(mileage, scheduler, clipboard);
    DayProgressModel model({scheduler, scheduler, settings, [] { return 0.0; }});
    DayProgressViewModel view(model, share);
    view.share();
    EXPECT_FALSE(clipboard.text.empty());
    EXPECT_EQ(view.shareLabel(), QStringLiteral("Copied"));
    settings.setWorkdayStartMinutes(settings.workdayStartMinutes() + 1);
    EXPECT_EQ(view.shareLabel(), QStringLiteral("Share"));
}

}  // namespace
}  // namespace vantrelle::testing
