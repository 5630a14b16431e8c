#include "MediaArtworkImageProvider.h"

#include <QLinearGradient>
#include <QPainter>

namespace vantrelle {

MediaArtworkImageProvider::MediaArtworkImageProvider(std::shared_ptr<const MediaArtworkSlot> slot)
    : QQuickImageProvider(QQuickImageProvider::Image), m_slot(std::move(slot)) {}

QImage MediaArtworkImageProvider::demoCover(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, side, side);
    gradient.setColorAt(0, QColor(0x6a, 0x3d, 0x9a));
    gradient.setColorAt(0.55, QColor(0xd9, 0x5d, 0x8c));
    gradient.setColorAt(1, QColor(0xf2, 0xb1, 0x5a));
    painter.fillRect(image.rect(), gradient);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 90), side / 40.0));
    for (int ring = 1; ring <= 4; ++ring) {
        const double r = side * 0.09 * ring;
        painter.drawEllipse(QPointF(side * 0.5, side * 0.5), r, r);
    }
    return image;
}

QImage MediaArtworkImageProvider::requestImage(const QString&, QSize* size, const QSize& requestedSize) {
    const auto artwork = m_slot->get();
    QImage image;
    if (artwork && artwork->bytes) {
        image = QImage::fromData(
            QByteArrayView(artwork->bytes->data(), static_cast<qsizetype>(artwork->bytes->size())));
    } else if (artwork) {
        image = demoCover(std::max(artwork->width, 1));
    }
    if (size) *size = image.size();
    if (!image.isNull() && requestedSize.isValid()) {
        image = image.scaled(requestedSize, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    }
    return image;
}

}  // namespace vantrelle
