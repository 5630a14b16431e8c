// The frontmost-application probe against a private Xvfb with two real windows. The test plays the
// window manager: it sets the root's _NET_ACTIVE_WINDOW, as a real one does on each activation.
#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "fakes/TempDir.h"
#include "linux/PrivateXServer.h"
#include "linux/TestApplication.h"
#include "monitors/X11ScreenActivity.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

// Two top-level windows of another client, and the window manager's part of naming the active one.
class TwoWindows {
public:
    TwoWindows() : m_c(xcb_connect(nullptr, nullptr)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_c)).data;
        m_root = screen->root;
        for (xcb_window_t& window : m_windows) {
            window = xcb_generate_id(m_c);
            xcb_create_window(m_c, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 100, 100, 0,
                              XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
            xcb_map_window(m_c, window);
        }
        setClass(0, "fake-editor", "FakeEditor");
        setClass(1, "scratch", "Scratch");
        xcb_flush(m_c);
    }
    ~TwoWindows() { xcb_disconnect(m_c); }
    TwoWindows(const TwoWindows&) = delete;
    TwoWindows& operator=(const TwoWindows&) = delete;

    void activate(int index) {
        const xcb_window_t window = index < 0 ? xcb_window_t{XCB_WINDOW_NONE} : m_windows[index];
        xcb_change_property(m_c, XCB_PROP_MODE_REPLACE, m_root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW,
                            32, 1, &window);
        xcb_flush(m_c);
    }

private:
    xcb_atom_t atom(const char* name) { return testing::internAtom(m_c, name); }
    void setClass(int index, const std::string& instance, const std::string& klass) {
        const std::string value = instance + '\0' + klass + '\0';
        xcb_change_property(m_c, XCB_PROP_MODE_REPLACE, m_windows[index], XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                            8, static_cast<std::uint32_t>(value.size()), value.data());
    }

    xcb_connection_t* m_c;
    xcb_window_t m_root = 0;
    xcb_window_t m_windows[2] = {0, 0};
};

class X11ScreenActivityTest : public testing::PrivateXServerTest {
protected:
    void SetUp() override {
        PrivateXServerTest::SetUp();
        apps.write("org.example.FakeEditor.desktop",
                   "[Desktop Entry]\nType=Application\nName=Fake Editor\nExec=fake-editor %F\n"
                   "StartupWMClass=FakeEditor\n");
    }

    testing::TempDir apps;
};

TEST_F(X11ScreenActivityTest, NamesTheActiveWindowsApplicationAndHearsActivations) {
    XConnection connection;
    ASSERT_TRUE(connection.isOpen());
    DesktopEntryIndex index({apps.path()});
    X11ScreenActivity activity(connection, index, /*ownPid=*/-1);
    std::vector<std::optional<FrontmostApp>> switches;
    activity.setSwitchHandler([&](std::optional<FrontmostApp> app) { switches.push_back(std::move(app)); });
    TwoWindows windows;

    windows.activate(0);
    ASSERT_TRUE(spinUntil([&] { return !switches.empty(); }));
    ASSERT_TRUE(switches.back());
    EXPECT_EQ(switches.back()->name, "Fake Editor");

    windows.activate(1);
    ASSERT_TRUE(spinUntil([&] { return switches.size() >= 2; }));
    ASSERT_TRUE(switches.back());
    EXPECT_EQ(switches.back()->id, "Scratch") << "no .desktop entry: the window class stands in";
    EXPECT_EQ(activity.frontmost(), switches.back());

    windows.activate(-1);
    ASSERT_TRUE(spinUntil([&] { return switches.size() >= 3; }));
    EXPECT_FALSE(switches.back());
}

}  // namespace
}  // namespace vantrelle
