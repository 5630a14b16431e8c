#pragma once

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QProcess>
#include <QStandardPaths>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "linux/TestApplication.h"

namespace vantrelle::testing {

// An Xvfb of the test suite's own, started once per suite; `display()` is empty where Xvfb isn't
// installed or didn't come up, and the tests skip.
class PrivateXServer {
public:
    void start() {
        if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty()) return;
        m_server = std::make_unique<QProcess>();
        // Xvfb writes the display number it took to the descriptor named.
        m_server->start(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                         QStringLiteral("0"), QStringLiteral("800x600x24"), QStringLiteral("-nolisten"),
                         QStringLiteral("tcp")});
        if (m_server->waitForReadyRead(10000)) m_display = ":" + m_server->readLine().trimmed().toStdString();
    }
    void stop() {
        if (!m_server) return;
        m_server->terminate();
        m_server->waitForFinished(5000);
        m_server.reset();
        m_display.clear();
    }
    [[nodiscard]] const std::string& display() const { return m_display; }

private:
    std::unique_ptr<QProcess> m_server;
    std::string m_display;
};

// Tests on the suite's private X server; each case points DISPLAY at it (none is put back), or skips.
class PrivateXServerTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        testApplication();
        server.start();
    }
    static void TearDownTestSuite() { server.stop(); }
    void SetUp() override {
        if (server.display().empty()) GTEST_SKIP() << "no Xvfb";
        ::setenv("DISPLAY", server.display().c_str(), 1);
    }

    static inline PrivateXServer server;
};

// An atom of another client's connection, as the adapters under test would see it.
inline xcb_atom_t internAtom(xcb_connection_t* c, const char* name) {
    auto* reply = xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}

}  // namespace vantrelle::testing
