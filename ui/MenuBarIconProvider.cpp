#include "MenuBarIconProvider.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QUrl>
#include <algorithm>

#include "LauncherIconProvider.h"

namespace vantrelle {
namespace {

// Programs lay their folder out like an icon theme ("hicolor/22x22/apps/name.png"), so a few levels
// are searched; the limits keep a folder such as "/" from stalling the view.
constexpr int kFolderDepth = 4;
constexpr int kFolderEntries = 4000;

// The biggest file of that name under the program's own folder; SVG wins since it scales.
QImage fromOwnFolder(const QString& folder, const QString& name, int side) {
    if (folder.isEmpty() || name.isEmpty() || name.contains(QLatin1Char('/'))) return {};
    const QStringList wanted{name + QStringLiteral(".svg"), name + QStringLiteral(".png")};
    QString best;
    qint64 bestWeight = -1;
    QList<QPair<QString, int>> pending{{folder, 0}};
    int visited = 0;
    while (!pending.isEmpty() && visited < kFolderEntries) {
        const auto [path, depth] = pending.takeFirst();
        const auto entries = QDir(path).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QFileInfo& entry : entries) {
            if (++visited > kFolderEntries) break;
            if (entry.isDir()) {
                if (depth + 1 < kFolderDepth && !entry.isSymLink())
                    pending.append({entry.filePath(), depth + 1});
                continue;
            }
            if (!wanted.contains(entry.fileName())) continue;
            const qint64 weight = entry.suffix() == QLatin1String("svg") ? INT64_MAX : entry.size();
            if (weight > bestWeight) {
                best = entry.filePath();
                bestWeight = weight;
            }
        }
    }
    if (best.isEmpty()) return {};
    return QIcon(best).pixmap(QSize(side, side)).toImage();
}

QImage fromTheme(const QString& name, int side) {
    if (name.isEmpty()) return {};
    const QIcon icon = QIcon::fromTheme(name);
    return icon.isNull() ? QImage() : icon.pixmap(QSize(side, side)).toImage();
}

}  // namespace

QImage MenuBarIconProvider::imageOf(const TrayPixmap& pixmap) {
    if (!pixmap.isValid() || pixmap.width > kMaxTrayPixmapSide || pixmap.height > kMaxTrayPixmapSide)
        return {};
    QImage image(pixmap.width, pixmap.height, QImage::Format_ARGB32);
    const std::uint8_t* pixel = pixmap.argb.data();
    for (int y = 0; y < pixmap.height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < pixmap.width; ++x, pixel += 4)
            line[x] = qRgba(pixel[1], pixel[2], pixel[3], pixel[0]);
    }
    return image;
}

QHash<QString, QString> MenuBarIconProvider::update(Store& store, const std::vector<MenuBarIcon>& icons) {
    QHash<QString, Picture> pictures;
    QHash<QString, QString> sources;
    for (const MenuBarIcon& icon : icons) {
        const QString id = QString::fromStdString(icon.id);
        Picture picture{QString::fromStdString(icon.iconName), QString::fromStdString(icon.iconThemePath),
                        imageOf(icon.pixmap), QString::fromStdString(icon.appName).left(1).toUpper()};
        // Whatever makes the picture differ makes the source differ, and nothing else does.
        const size_t pixels = qHashBits(icon.pixmap.argb.data(), icon.pixmap.argb.size(),
                                        static_cast<size_t>(icon.pixmap.width));
        const size_t revision =
            qHashMulti(0, picture.iconName, picture.iconThemePath, picture.initial, pixels);
        sources.insert(id, QStringLiteral("image://menubar/") +
                               QString::fromLatin1(QUrl::toPercentEncoding(id)) + QLatin1Char('/') +
                               QString::number(revision, 16));
        pictures.insert(id, std::move(picture));
    }
    const QMutexLocker lock(&store.mutex);
    store.pictures = std::move(pictures);
    return sources;
}

QImage MenuBarIconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const int side =
        requestedSize.width() > 0 ? std::min(requestedSize.width(), 256) : MenuBarIcons::kIconSide;
    const QString key = QUrl::fromPercentEncoding(id.left(id.lastIndexOf(QLatin1Char('/'))).toUtf8());
    Picture picture;
    {
        const QMutexLocker lock(&m_store->mutex);
        picture = m_store->pictures.value(key);
    }
    QImage image = fromOwnFolder(picture.iconThemePath, picture.iconName, side);
    if (image.isNull()) image = fromTheme(picture.iconName, side);
    if (image.isNull()) image = picture.pixmap;
    // Icons come in the sizes their makers drew; the view asks for one.
    if (!image.isNull() && std::max(image.width(), image.height()) != side)
        image = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (image.isNull()) image = LauncherIconProvider::placeholder(side, picture.initial);
    if (size) *size = image.size();
    return image;
}

}  // namespace vantrelle
