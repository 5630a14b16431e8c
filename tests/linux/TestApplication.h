#pragma once

#include <QCoreApplication>

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

}  // namespace vantrelle::testing
