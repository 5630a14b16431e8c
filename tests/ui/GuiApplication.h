#pragma once

#include <QGuiApplication>

namespace vantrelle::testing {

// One application object for every test of the executable, on the platform the test environment names.
inline QGuiApplication& guiApplication() {
    static int argc = 1;
    static char name[] = "ui_model_tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    return *app;
}

}  // namespace vantrelle::testing
