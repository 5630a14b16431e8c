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

// Tests on an Xvfb of the suite's own, started once per suite; each case points DISPLAY at it (none is
// put back), or skips where Xvfb isn't installed or didn't come up.
class PrivateXServerTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        testApplication();
        if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty()) return;
        server = std::make_unique<QProcess>();
        // Xvfb writes the display number it took to the descriptor named.
        server->start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("800x600x24"), QStringLiteral("-nolisten"),
                       QStringLiteral("tcp")});
        if (server->waitForReadyRead(10000)) display = ":" + server->readLine().trimmed().toStdString();
    }
    static void TearDownTestSuite() {
        if (!server) return;
        server->terminate();
        server->waitForFinished(5000);
        server.reset();
        display.clear();
    }
    void SetUp() override {
        if (display.empty()) GTEST_SKIP() << "no Xvfb";
        ::setenv("DISPLAY", display.c_str(), 1);
    }

    static inline std::unique_ptr<QProcess> server;
    static inline std::string display;
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
