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
constexpr std::uint32_t kG = 5, kH = 4;  // stored key codes

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

}  // namespace
}  // namespace vantrelle
