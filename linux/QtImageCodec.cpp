#include "QtImageCodec.h"

#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <algorithm>
#include <cmath>

namespace vantrelle {

namespace {

class QtDecodedImage final : public DecodedImage {
public:
    explicit QtDecodedImage(QImage image) : m_image(std::move(image)) {}
    [[nodiscard]] std::int64_t width() const override { return m_image.width(); }
    [[nodiscard]] std::int64_t height() const override { return m_image.height(); }
    [[nodiscard]] bool hasAlpha() const override { return m_image.hasAlphaChannel(); }
    [[nodiscard]] const QImage& image() const { return m_image; }

private:
    QImage m_image;
};

QString qtPath(const std::filesystem::path& file) {
    return QString::fromStdString(file.string());
}

}  // namespace

std::optional<ImageCodec::Probe> QtImageCodec::probe(const std::filesystem::path& file) const {
    QImageReader reader(qtPath(file));
    if (!reader.canRead()) return std::nullopt;
    Probe probe;
    const QByteArray format = reader.format();
    probe.type = format == "png"    ? ImageFileType::png
                 : format == "jpeg" ? ImageFileType::jpeg
                                    : ImageFileType::other;
    if (const QSize size = reader.size(); size.isValid()) {
        probe.width = size.width();
        probe.height = size.height();
    }
    return probe;
}

std::unique_ptr<DecodedImage> QtImageCodec::decode(const std::filesystem::path& file,
                                                   std::int64_t maxSide) const {
    QImageReader reader(qtPath(file));
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    const std::int64_t longest = stored.isValid() ? std::max(stored.width(), stored.height()) : 0;
    if (longest > maxSide && maxSide > 0) {
        // The scale applies to the stored image, before the turn; the ratio is the same either way.
        const double scale = static_cast<double>(maxSide) / static_cast<double>(longest);
        reader.setScaledSize(QSize(std::max(1, static_cast<int>(std::lround(stored.width() * scale))),
                                   std::max(1, static_cast<int>(std::lround(stored.height() * scale)))));
    }
    QImage image = reader.read();
    if (image.isNull()) return nullptr;
    return std::make_unique<QtDecodedImage>(std::move(image));
}

std::unique_ptr<DecodedImage> QtImageCodec::flattenOverWhite(const DecodedImage& image) const {
    const QImage& source = static_cast<const QtDecodedImage&>(image).image();
    QImage flat(source.size(), QImage::Format_RGB32);
    if (flat.isNull()) return nullptr;
    flat.fill(Qt::white);
    QPainter painter(&flat);
    painter.drawImage(0, 0, source);
    painter.end();
    return std::make_unique<QtDecodedImage>(std::move(flat));
}

bool QtImageCodec::encode(const DecodedImage& image, const std::filesystem::path& file, ImageFileType type,
                          double quality) const {
    QSaveFile out(qtPath(file));
    if (!out.open(QIODevice::WriteOnly)) return false;
    QImageWriter writer(&out,
                        type == ImageFileType::png ? QByteArrayLiteral("png") : QByteArrayLiteral("jpeg"));
    if (type == ImageFileType::jpeg) writer.setQuality(static_cast<int>(std::lround(quality * 100.0)));
    if (!writer.write(static_cast<const QtDecodedImage&>(image).image())) {
        out.cancelWriting();
        return false;
    }
    return out.commit();
}

}  // namespace vantrelle
