// Global shortcuts as key grabs on a private Xvfb: xdotool presses the keys as a user would, and
// another X client holds a combo first.
#include <QProcess>
#include <QStandardPaths>

#include "PrivateXServer.h"
#include "shortcuts/KeyCombo.h"
#include "shortcuts/X11HotKeys.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

constexpr std::uint32_t kCtrlAlt = ComboModifier::ctrl | ComboModifier::alt;
constexpr std::uint32_t kG = 5, kH = 4, kK = 40;  // stored key codes

class X11HotKeysTest : public testing::PrivateXServerTest {
protected:
    void SetUp() override {
        PrivateXServerTest::SetUp();
        if (QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty()) GTEST_SKIP() << "no xdotool";
    }
    static void press(const char* keys) {
        // Several key names in one argument list press them one after the other.
        QStringList arguments{QStringLiteral("key")};
        arguments += QString::fromLatin1(keys).split(QLatin1Char(' '));
        ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
    }
};

TEST_F(X11HotKeysTest, AGrabHearsItsComboInEveryLockStateUntilReleased) {
    XConnection connection;
    ASSERT_TRUE(connection.isOpen());
    X11HotKeys hotKeys(connection);
    std::vector<std::uint32_t> heard;
    hotKeys.install([&](std::uint32_t id) { heard.push_back(id); });
    ASSERT_EQ(hotKeys.registerHotKey(7, kG, kCtrlAlt), 0);

    press("ctrl+alt+g");
    ASSERT_TRUE(spinUntil([&] { return heard.size() == 1; }));
    press("Caps_Lock ctrl+alt+g Caps_Lock");
    ASSERT_TRUE(spinUntil([&] { return heard.size() == 2; }));
    EXPECT_EQ(heard, (std::vector<std::uint32_t>{7, 7}));

    // Released: G goes to nobody; H, grabbed after, is heard alone.
    hotKeys.unregisterHotKey(7);
    ASSERT_EQ(hotKeys.registerHotKey(8, kH, kCtrlAlt), 0);
    press("ctrl+alt+g ctrl+alt+h");
    ASSERT_TRUE(spinUntil([&] { return heard.size() == 3; }));
    EXPECT_EQ(heard.back(), 8U);
    EXPECT_EQ(hotKeys.registerHotKey(9, 53, kCtrlAlt), X11HotKeys::kNoSuchKey);  // no stored code 53
}

TEST_F(X11HotKeysTest, AComboAnotherClientHoldsIsRefusedWithBadAccess) {
    // The other client grabs Ctrl+Alt+K first.
    xcb_connection_t* other = xcb_connect(nullptr, nullptr);
    ASSERT_FALSE(xcb_connection_has_error(other));
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(other)).data->root;
    XConnection connection;
    X11HotKeys hotKeys(connection);
    hotKeys.install([](std::uint32_t) {});
    ASSERT_EQ(hotKeys.registerHotKey(1, kG, kCtrlAlt), 0);  // to learn K's keycode from the same keymap
    hotKeys.unregisterHotKey(1);
    // K is keycode 45 on Xvfb's default US keymap.
    xcb_generic_error_t* error = xcb_request_check(
        other, xcb_grab_key_checked(other, 0, root, 12, 45, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    ASSERT_EQ(error, nullptr);

    EXPECT_EQ(hotKeys.registerHotKey(2, kK, kCtrlAlt), 10);
    xcb_disconnect(other);
    // Once the other client is gone the combo is free: the server lets go of its grabs when it gets
    // round to the closed connection, which may come after our next request.
    EXPECT_TRUE(spinUntil([&] {
        if (hotKeys.registerHotKey(3, kK, kCtrlAlt) == 0) return true;
        hotKeys.unregisterHotKey(3);
        return false;
    }));
}

}  // namespace
}  // namespace vantrelle
