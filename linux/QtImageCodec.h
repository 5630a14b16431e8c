#pragma once

#include "platform/ImageCodec.h"

namespace vantrelle {

// Image files through Qt's image plugins: QImageReader with the EXIF orientation applied and a scaled
// decode (a JPEG is then decoded at reduced size, not whole and shrunk), QImageWriter with quality,
// written through QSaveFile so a failed write leaves no partial file. Safe on any thread.
class QtImageCodec final : public ImageCodec {
public:
    [[nodiscard]] std::optional<Probe> probe(const std::filesystem::path& file) const override;
    [[nodiscard]] std::unique_ptr<DecodedImage> decode(const std::filesystem::path& file,
                                                       std::int64_t maxSide) const override;
    [[nodiscard]] std::unique_ptr<DecodedImage> flattenOverWhite(const DecodedImage& image) const override;
    [[nodiscard]] bool encode(const DecodedImage& image, const std::filesystem::path& file,
                              ImageFileType type, double quality) const override;
};

}  // namespace vantrelle
