#pragma once

#include <QGuiApplication>

namespace vantrelle::testing {

// One application object for every test of the executable, on the platform the test environment names;
// Qt Quick draws in software, so no GPU is needed.
inline QGuiApplication& guiApplication() {
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) qputenv("QT_QUICK_BACKEND", "software");
    static int argc = 1;
    static char name[] = "ui_model_tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    return *app;
}

}  // namespace vantrelle::testing
