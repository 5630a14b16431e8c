#pragma once

#include <QQuickImageProvider>
#include <memory>
#include <mutex>

#include "media/Artwork.h"

namespace vantrelle {

// The artwork on show, shared between the view model that sets it and the image provider that draws
// it; the engine may ask for the image from its loader thread, hence the lock.
class MediaArtworkSlot {
public:
    void set(std::optional<Artwork> artwork) {
        std::lock_guard lock(m_mutex);
        m_artwork = std::move(artwork);
    }
    [[nodiscard]] std::optional<Artwork> get() const {
        std::lock_guard lock(m_mutex);
        return m_artwork;
    }

private:
    mutable std::mutex m_mutex;
    std::optional<Artwork> m_artwork;
};

// "image://media/<n>": the current artwork, decoded on request. Artwork without bytes is the demo
// cover, drawn here.
class MediaArtworkImageProvider final : public QQuickImageProvider {
public:
    explicit MediaArtworkImageProvider(std::shared_ptr<const MediaArtworkSlot> slot);
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    [[nodiscard]] static QImage demoCover(int side);

private:
    std::shared_ptr<const MediaArtworkSlot> m_slot;
};

}  // namespace vantrelle
