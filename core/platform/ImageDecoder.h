#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrelle {

struct ImageSize {
    int width = 0;
    int height = 0;
};

// The platform's image decoder. Safe to call from any thread; blocking, so call it off the main thread.
class ImageDecoder {
public:
    virtual ~ImageDecoder() = default;
    // The size of the image the bytes encode, or nothing when they are no image the platform reads.
    [[nodiscard]] virtual std::optional<ImageSize> decode(const std::vector<std::uint8_t>& bytes) const = 0;
};

}  // namespace vantrelle
