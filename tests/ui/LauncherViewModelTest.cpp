#include <gtest/gtest.h>

#include "GuiApplication.h"
#include "LauncherIconProvider.h"
#include "LauncherViewModel.h"
#include "fakes/AppBasics.h"
#include "fakes/FakeProcessRunner.h"
#include "fakes/TempDir.h"

namespace vantrelle::testing {
namespace {

struct LauncherViewModels : ::testing::Test, AppBasics {
    QGuiApplication& app = guiApplication();
    InlineQueueFactory queues;
    FakeProcessRunner runner;
    TempDir dir;
};

TEST_F(LauncherViewModels, AClickStartsTheAppAndFoldsTheNotchAway) {
    dir.write("apps/my app.desktop",
              "[Desktop Entry]\nType=Application\nName=My App\nIcon=/no/such icon.png\n");
    dir.write("appletsrc", "launchers=applications:my app.desktop\n");
    LauncherModel model{
        {scheduler, queues, runner, scheduler, {dir / "apps"}, dir / "appletsrc", "KDE", dir / "none", {}}};
    model.start();
    scheduler.runUntilIdle();
    int collapses = 0;
    LauncherViewModel view(model, [&] { ++collapses; });
    ASSERT_EQ(view.apps()->count(), 1);
    EXPECT_EQ(view.apps()->rows()[0].iconSource,
              QStringLiteral("image://launcher/%2Fno%2Fsuch%20icon.png/M"));

    runner.calls.clear();
    view.launch(QStringLiteral("my app"));
    view.launch(QStringLiteral("not listed"));
    EXPECT_EQ(collapses, 1);
    EXPECT_EQ(runner.calls.size(), 1U);
}

TEST_F(LauncherViewModels, AnIconThatCannotBeFoundStillDrawsSomething) {
    LauncherIconProvider provider;
    for (const QString& id : {QStringLiteral("%2Fno%2Fsuch%20icon.png/M"),
                              QStringLiteral("no-such-icon-name"), QString(), QStringLiteral("%%%")}) {
        SCOPED_TRACE(id.toStdString());
        QSize size;
        EXPECT_FALSE(provider.requestImage(id, &size, QSize(32, 32)).isNull());
        EXPECT_TRUE(!size.isEmpty() && size.width() <= 32);
    }
}

}  // namespace
}  // namespace vantrelle::testing
