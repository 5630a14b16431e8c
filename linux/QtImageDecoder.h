#pragma once

#include "platform/ImageDecoder.h"

namespace vantrelle {

// Decodes with QImage, which is safe on worker threads.
class QtImageDecoder final : public ImageDecoder {
public:
    [[nodiscard]] std::optional<ImageSize> decode(const std::vector<std::uint8_t>& bytes) const override;
};

}  // namespace vantrelle
