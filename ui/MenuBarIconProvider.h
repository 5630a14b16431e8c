#pragma once

#include <QHash>
#include <QImage>
#include <QMutex>
#include <QQuickImageProvider>
#include <memory>

#include "menubar/MenuBarIcons.h"

namespace vantrelle {

// "image://menubar/<id>/<revision>": a tray icon's picture from the program's own icon folder or the
// icon theme, else the picture the item sent, else a rounded square with its name's initial. The
// revision changes with the picture, so the view loads it again. The view model keeps the pictures
// current; the engine owns the provider, so both share one store.
class MenuBarIconProvider final : public QQuickImageProvider {
public:
    struct Picture {
        QString iconName;
        QString iconThemePath;
        QImage pixmap;
        QString initial;
    };
    struct Store {
        QMutex mutex;
        QHash<QString, Picture> pictures;
    };

    explicit MenuBarIconProvider(std::shared_ptr<Store> store)
        : QQuickImageProvider(QQuickImageProvider::Image), m_store(std::move(store)) {}
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    // Replaces the store's pictures with the icons'; returns each icon's source by its id.
    static QHash<QString, QString> update(Store& store, const std::vector<MenuBarIcon>& icons);
    // ARGB32 in network byte order to an image; a null image for an unusable picture.
    [[nodiscard]] static QImage imageOf(const TrayPixmap& pixmap);

private:
    std::shared_ptr<Store> m_store;
};

}  // namespace vantrelle
