#pragma once

#include <QQuickImageProvider>

namespace vantrelle {

// "image://launcher/<icon>/<initial>": an application's icon from the icon theme, or from a file when
// the .desktop file names a full path; a rounded square with the name's initial when neither has it
// (machines without an icon theme). Both parts are percent-encoded. Synchronous, so the theme is only
// read on the GUI thread.
class LauncherIconProvider final : public QQuickImageProvider {
public:
    LauncherIconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    [[nodiscard]] static QString sourceFor(const std::string& icon, const std::string& name = {});
    [[nodiscard]] static QImage placeholder(int side, const QString& initial = {});
};

}  // namespace vantrelle
