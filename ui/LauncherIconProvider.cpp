#include "LauncherIconProvider.h"

#include <QFileInfo>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QUrl>
#include <algorithm>

namespace vantrelle {
namespace {

constexpr int kDefaultSide = 64;
const QString kGenericIcon = QStringLiteral("application-x-executable");

QImage themeIcon(const QString& name, int side) {
    QIcon icon = QIcon::fromTheme(name);
    // Some entries name the theme icon with its file's extension ("app.png").
    if (icon.isNull()) {
        const QString suffix = QFileInfo(name).suffix().toLower();
        if (suffix == QLatin1String("png") || suffix == QLatin1String("svg") ||
            suffix == QLatin1String("xpm"))
            icon = QIcon::fromTheme(QFileInfo(name).completeBaseName());
    }
    if (icon.isNull()) return {};
    return icon.pixmap(QSize(side, side)).toImage();
}

}  // namespace

QString LauncherIconProvider::sourceFor(const std::string& icon, const std::string& name) {
    const QString iconName = icon.empty() ? kGenericIcon : QString::fromStdString(icon);
    QString source =
        QStringLiteral("image://launcher/") + QString::fromLatin1(QUrl::toPercentEncoding(iconName));
    const QString initial = QString::fromStdString(name).left(1).toUpper();
    if (!initial.isEmpty())
        source += QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(initial));
    return source;
}

QImage LauncherIconProvider::placeholder(int side, const QString& initial) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x48, 0x48, 0x4a));
    painter.drawRoundedRect(QRectF(0, 0, side, side), side * 0.22, side * 0.22);
    if (!initial.isEmpty()) {
        QFont font = painter.font();
        font.setPixelSize(std::max(1, side / 2));
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(QRectF(0, 0, side, side), Qt::AlignCenter, initial);
    }
    return image;
}

QImage LauncherIconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const int side = requestedSize.width() > 0 ? std::min(requestedSize.width(), 512) : kDefaultSide;
    const auto slash = id.indexOf(QLatin1Char('/'));
    const QString name = QUrl::fromPercentEncoding(id.left(slash).toUtf8());
    const QString initial = slash < 0 ? QString() : QUrl::fromPercentEncoding(id.mid(slash + 1).toUtf8());
    QImage image;
    if (name.startsWith(QLatin1Char('/'))) {
        image = QImage(name);
        if (!image.isNull()) image = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    } else if (!name.isEmpty()) {
        image = themeIcon(name, side);
    }
    if (image.isNull()) image = themeIcon(kGenericIcon, side);
    if (image.isNull()) image = placeholder(side, initial);
    if (size) *size = image.size();
    return image;
}

}  // namespace vantrelle
