#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace vantrelle {

// Cover art as the encoded bytes the player gave (PNG, JPEG…), already known to decode, with the
// decoded size. The bytes are shared: caches and views hold the same buffer.
struct Artwork {
    std::shared_ptr<const std::vector<std::uint8_t>> bytes;
    int width = 0;
    int height = 0;

    [[nodiscard]] bool operator==(const Artwork& other) const {
        return bytes == other.bytes && width == other.width && height == other.height;
    }
};

}  // namespace vantrelle
