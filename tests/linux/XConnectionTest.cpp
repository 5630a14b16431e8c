#include <QProcess>
#include <QStandardPaths>
#include <vector>

#include "PrivateXServer.h"
#include "x11/DragPasteboard.h"
#include "x11/PointerMonitor.h"
#include "x11/X11Desktop.h"
#include "x11/XConnection.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

using X11Adapters = testing::PrivateXServerTest;

// Another program on the same display: owns a window and the drag selection.
class OtherClient {
public:
    OtherClient() : m_c(xcb_connect(nullptr, nullptr)) {
        m_window = xcb_generate_id(m_c);
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_c)).data;
        xcb_create_window(m_c, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 10, 10, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        xcb_flush(m_c);
    }
    ~OtherClient() { xcb_disconnect(m_c); }

    xcb_atom_t atom(const char* name) { return testing::internAtom(m_c, name); }
    void startDrag(const std::vector<const char*>& types) {
        std::vector<xcb_atom_t> atoms;
        for (const char* type : types) atoms.push_back(atom(type));
        xcb_change_property(m_c, XCB_PROP_MODE_REPLACE, m_window, atom("XdndTypeList"), XCB_ATOM_ATOM, 32,
                            static_cast<std::uint32_t>(atoms.size()), atoms.data());
        xcb_set_selection_owner(m_c, m_window, atom("XdndSelection"), XCB_CURRENT_TIME);
        xcb_flush(m_c);
    }
    void endDrag() {
        xcb_set_selection_owner(m_c, XCB_WINDOW_NONE, atom("XdndSelection"), XCB_CURRENT_TIME);
        xcb_flush(m_c);
    }

private:
    xcb_connection_t* m_c;
    xcb_window_t m_window = 0;
};

TEST_F(X11Adapters, TheAdaptersShareOneConnectionAndEachHearsItsOwnEvents) {
    XConnection connection;
    ASSERT_TRUE(connection.isOpen());
    std::vector<std::pair<int, int>> moves;
    PointerMonitor pointer(connection, [&](NotchOverlayController::MouseEvent type, int x, int y) {
        if (type == NotchOverlayController::MouseEvent::mouseMoved) moves.emplace_back(x, y);
    });
    X11DragPasteboard pasteboard(connection);
    X11Desktop desktop(connection);
    EXPECT_TRUE(desktop.isAvailable());
    EXPECT_FALSE(desktop.hasCompositor());

    // A drag of files, then one of text, then none: each new owner of the drag selection counts.
    OtherClient other;
    const std::pair<std::vector<const char*>, bool> drags[] = {
        {{"text/plain", "text/uri-list"}, true},
        {{"text/plain", "UTF8_STRING"}, false},
    };
    for (int n = 0; n < 2; ++n) {
        other.startDrag(drags[n].first);
        ASSERT_TRUE(spinUntil([&] { return pasteboard.changeCount() == n + 1; }));
        EXPECT_EQ(pasteboard.hasFileUrls(), drags[n].second) << n;
    }
    other.endDrag();
    ASSERT_TRUE(spinUntil([&] { return pasteboard.changeCount() == 3; }));
    EXPECT_FALSE(pasteboard.hasFileUrls());

    // Real pointer motion on the same connection reaches the pointer monitor with its position.
    if (QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty()) GTEST_SKIP() << "no xdotool";
    QProcess::execute(QStringLiteral("xdotool"),
                      {QStringLiteral("mousemove"), QStringLiteral("120"), QStringLiteral("80"),
                       QStringLiteral("mousemove_relative"), QStringLiteral("1"), QStringLiteral("0")});
    ASSERT_TRUE(spinUntil([&] { return !moves.empty() && moves.back() == std::pair{121, 80}; }));
    EXPECT_EQ(pasteboard.changeCount(), 3);  // pointer events are not drags
}

}  // namespace
}  // namespace vantrelle
