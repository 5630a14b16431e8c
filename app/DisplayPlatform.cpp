#include "DisplayPlatform.h"

#include <QGuiApplication>
#include <cstdio>

#include "support/DebugLog.h"

namespace vantrelle {

void DisplayPlatform::preferX11() {
    // Qt tries each platform of the list in turn; the check below then explains a Wayland-only session.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

bool DisplayPlatform::check() {
    const QString platform = QGuiApplication::platformName();
    if (platform == QStringLiteral("xcb") || platform == QStringLiteral("offscreen")) return true;
    const QByteArray name = platform.toUtf8();
    std::fprintf(stderr,
                 "Vantrelle needs an X11 session or XWayland, and Qt is using the \"%s\" platform.\n"
                 "Run it with QT_QPA_PLATFORM=xcb (XWayland must be running in a Wayland session).\n",
                 name.constData());
    DebugLog::write([&] { return "launch: unsupported Qt platform " + name.toStdString(); });
    return false;
}

}  // namespace vantrelle
