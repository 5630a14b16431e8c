#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

namespace vantrelle::testing {

// The one Qt application object of an adapter test binary, made on first use.
inline QCoreApplication& testApplication() {
    static int argc = 1;
    static char name[] = "linux_tests";
    static char* argv[] = {name, nullptr};
    static QCoreApplication* app =
        QCoreApplication::instance() ? QCoreApplication::instance() : new QCoreApplication(argc, argv);
    return *app;
}

// Tests of adapters that deliver through the Qt event loop.
class EventLoopTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { testApplication(); }
};

// The real main queue needs an event loop; this turns it until `done` or a deadline generous enough
// for a machine loaded with parallel builds (it only costs time when a test fails).
template <typename Done>
bool spinUntil(Done done, int limitMs = 20000) {
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < limitMs) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return done();
}

}  // namespace vantrelle::testing
