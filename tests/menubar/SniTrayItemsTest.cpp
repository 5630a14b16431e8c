#include <gtest/gtest.h>
#include <unistd.h>

#include <QDBusMessage>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include "FakeStatusNotifier.h"
#include "FakeTrayItems.h"
#include "GuiApplication.h"
#include "MenuBarViewModel.h"
#include "PrivateSessionBus.h"
#include "TestApplication.h"
#include "fakes/FakeOverlayPorts.h"
#include "menubar/MenuBarIcons.h"
#include "menubar/SniTrayItems.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeStatusNotifierItem;
using testing::FakeStatusNotifierWatcher;

// The watcher and two items answer from a thread of their own, since the adapter's calls block.
class SniTrayItemsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { testing::guiApplication(); }  // for the pictures
    void SetUp() override {
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
            GTEST_SKIP() << "dbus-daemon is not installed";
        ASSERT_FALSE(bus.address().isEmpty());
        qDBusRegisterMetaType<testing::FakePixmap>();
        qDBusRegisterMetaType<testing::FakePixmaps>();
        foo.setPicture(QStringLiteral("applications-system"), {});
        // The 16 is the nearest size to the view's.
        bar.setPicture(QString(), {testing::solidPixmap(48, qRgb(255, 0, 0)),
                                   testing::solidPixmap(16, qRgb(0, 160, 80))});
        serving.start();
        itemBus = QDBusConnection::connectToBus(bus.address(), QStringLiteral("fake-items"));
        ASSERT_TRUE(itemBus.isConnected());
        for (auto* object : {static_cast<QObject*>(&foo), static_cast<QObject*>(&bar)})
            object->moveToThread(&serving);
        const auto exports = QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots;
        ASSERT_TRUE(itemBus.registerObject(QStringLiteral("/StatusNotifierItem"), &foo, exports));
        ASSERT_TRUE(
            itemBus.registerObject(QStringLiteral("/org/ayatana/NotificationItem/bar"), &bar, exports));
        ASSERT_TRUE(itemBus.registerService(QStringLiteral("org.kde.StatusNotifierItem-100-1")));

        watcherBus = QDBusConnection::connectToBus(bus.address(), QStringLiteral("fake-watcher"));
        watcher = std::make_unique<FakeStatusNotifierWatcher>(QStringList{
            QStringLiteral("org.kde.StatusNotifierItem-100-1/StatusNotifierItem"),
            itemBus.baseService() + QStringLiteral("/org/ayatana/NotificationItem/bar"),
            QStringLiteral("org.example.Gone/StatusNotifierItem"), QStringLiteral("/no/service")});
        watcher->moveToThread(&serving);
        ASSERT_TRUE(watcherBus.registerObject(QStringLiteral("/StatusNotifierWatcher"), watcher.get(),
                                              QDBusConnection::ExportAllProperties));
        ASSERT_TRUE(watcherBus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")));

        connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("vantrelle-under-test"));
        tray = std::make_unique<SniTrayItems>(connection);
        screens.list = {testing::notchedScreen()};
        icons = std::make_unique<MenuBarIcons>(MenuBarIcons::Dependencies{
            *tray,
            screens,
            scheduler,
            scheduler,
            [](const TrayItem& item) {
                return item.id == "foo" ? Rect{601, 960, 56, 22} : Rect{100, 960, 20, 22};
            },
            {}});
    }
    void TearDown() override {
        icons.reset();
        tray.reset();
        for (const char* name : {"vantrelle-under-test", "fake-items", "fake-watcher"})
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
        serving.quit();
        serving.wait();
    }

    testing::PrivateSessionBus bus;
    QThread serving;
    QDBusConnection itemBus{QString()};
    QDBusConnection watcherBus{QString()};
    QDBusConnection connection{QString()};
    FakeStatusNotifierItem foo{QStringLiteral("Foo Helper"), QStringLiteral("foo"), true};
    FakeStatusNotifierItem bar{QString(), QStringLiteral("bar"), false};
    std::unique_ptr<FakeStatusNotifierWatcher> watcher;
    std::unique_ptr<SniTrayItems> tray;
    testing::FakeScreens screens;
    VirtualScheduler scheduler;
    std::unique_ptr<MenuBarIcons> icons;
};

TEST_F(SniTrayItemsTest, ListsTheWatchersItemsOpensThemAndSaysWhenTheWatcherGoes) {
    icons->refresh();
    ASSERT_TRUE(icons->trusted());
    ASSERT_EQ(icons->icons().size(), 2U);  // the gone and malformed addresses are skipped
    EXPECT_EQ(icons->icons()[0].label, "bar");
    const MenuBarIcon& hidden = icons->icons()[1];
    EXPECT_EQ(hidden.label, "Foo Helper");
    EXPECT_TRUE(hidden.isHidden);  // one point into the notch
    EXPECT_EQ(hidden.pid, ::getpid());

    // Opening reaches the item; one that refuses Activate gets its menu instead.
    icons->open(hidden, {});
    scheduler.advance(MenuBarIcons::kCollapseDelay);
    EXPECT_EQ(foo.calls(), QStringList{QStringLiteral("Activate 629,971")});
    icons->open(icons->icons()[0], {});
    scheduler.advance(MenuBarIcons::kCollapseDelay);
    EXPECT_EQ(bar.calls(), QStringList{QStringLiteral("ContextMenu 110,971")});
    EXPECT_FALSE(icons->status().has_value());

    ASSERT_TRUE(watcherBus.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher")));
    icons->refresh();
    EXPECT_FALSE(icons->trusted());
    EXPECT_TRUE(icons->icons().empty());
    EXPECT_FALSE(tray->activate("org.example.Gone/StatusNotifierItem", 0, 0));
}

// The colour at the picture's centre, as the view would draw the row's source.
QColor centreOf(MenuBarIconProvider& provider, const QString& source) {
    const QString prefix = QStringLiteral("image://menubar/");
    if (!source.startsWith(prefix)) return {};
    QSize size;
    const QImage image = provider.requestImage(source.mid(prefix.size()), &size, QSize(32, 32));
    if (image.isNull() || size != QSize(32, 32)) return {};
    return image.pixelColor(16, 16);
}

TEST_F(SniTrayItemsTest, TheItemsPicturesReachTheViewAndFollowNewIcon) {
    MenuBarViewModel view(*icons, [] {});
    std::unique_ptr<MenuBarIconProvider> provider(view.makeImageProvider());
    view.setShown(true);
    ASSERT_EQ(icons->icons().size(), 2U);
    EXPECT_EQ(icons->icons()[1].iconName, "applications-system");

    ASSERT_EQ(view.visible()->rows().size(), 1U);
    const QString before = view.visible()->rows()[0].icon;
    EXPECT_EQ(centreOf(*provider, before), QColor(0, 160, 80));
    ASSERT_EQ(view.hidden()->rows().size(), 1U);
    EXPECT_TRUE(centreOf(*provider, view.hidden()->rows()[0].icon).isValid());  // theme icon or initial

    // The item changes its picture and says so; no poll is due on the virtual clock.
    bar.setPicture(QString(), {testing::solidPixmap(16, qRgb(20, 40, 220))});
    itemBus.send(QDBusMessage::createSignal(QStringLiteral("/org/ayatana/NotificationItem/bar"),
                                            QStringLiteral("org.kde.StatusNotifierItem"),
                                            QStringLiteral("NewIcon")));
    ASSERT_TRUE(testing::spinUntil([&] { return view.visible()->rows()[0].icon != before; }));
    EXPECT_EQ(centreOf(*provider, view.visible()->rows()[0].icon), QColor(20, 40, 220));
    view.setShown(false);
}

TEST(MenuBarIconProvider, TheProgramsOwnFolderComesFirstThenItsPixmap) {
    testing::guiApplication();
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("hicolor/22x22/apps")));
    QImage own(22, 22, QImage::Format_ARGB32);
    own.fill(QColor(200, 0, 200));
    ASSERT_TRUE(own.save(folder.filePath(QStringLiteral("hicolor/22x22/apps/vantrelle-test-tray.png"))));

    MenuBarIcon icon;
    icon.id = "tray#0#1";
    icon.appName = "Tray";
    const auto green = testing::solidPixmap(16, qRgb(0, 160, 80));
    icon.pixmap = {16, 16, std::vector<std::uint8_t>(green.argb.begin(), green.argb.end())};
    const struct {
        std::string name;
        QString themePath;
        QColor expected;
    } cases[] = {
        {"vantrelle-test-tray", folder.path(), QColor(200, 0, 200)},
        {"vantrelle-test-missing", QStringLiteral("/"), QColor(0, 160, 80)},  // bounded, not the disk
        {"../vantrelle-test-tray", folder.path(), QColor(0, 160, 80)},
    };
    auto store = std::make_shared<MenuBarIconProvider::Store>();
    MenuBarIconProvider provider(store);
    for (const auto& c : cases) {
        icon.iconName = c.name;
        icon.iconThemePath = c.themePath.toStdString();
        const QString source = MenuBarIconProvider::update(*store, {icon}).value(QStringLiteral("tray#0#1"));
        EXPECT_EQ(centreOf(provider, source), c.expected) << c.name;
    }
}

}  // namespace
}  // namespace vantrelle
