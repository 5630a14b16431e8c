#pragma once

#include <QQuickImageProvider>

namespace vantrelle {

// "image://launcher/<icon>": an application's icon from the icon theme, or from a file when the
// .desktop file names a full path; a plain rounded square when neither has it. The icon is
// percent-encoded in the URL. Synchronous, so the theme is only read on the GUI thread.
class LauncherIconProvider final : public QQuickImageProvider {
public:
    LauncherIconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    [[nodiscard]] static QString sourceFor(const std::string& icon);
    [[nodiscard]] static QImage placeholder(int side);
};

}  // namespace vantrelle
