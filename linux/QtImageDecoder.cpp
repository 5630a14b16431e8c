#include "QtImageDecoder.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace vantrelle {

std::optional<ImageSize> QtImageDecoder::decode(const std::vector<std::uint8_t>& bytes) const {
    const auto data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    const QImage image = reader.read();
    if (image.isNull()) return std::nullopt;
    return ImageSize{image.width(), image.height()};
}

}  // namespace vantrelle
