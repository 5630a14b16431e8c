#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace vantrelle {

enum class ImageFileType { png, jpeg, other };

// An image decoded into memory by the codec; only the codec looks inside.
class DecodedImage {
public:
    virtual ~DecodedImage() = default;
    [[nodiscard]] virtual std::int64_t width() const = 0;
    [[nodiscard]] virtual std::int64_t height() const = 0;
    [[nodiscard]] virtual bool hasAlpha() const = 0;
};

// Reads and writes image files. Every call is independent of the others and safe on any thread, so
// conversions run on a worker queue.
class ImageCodec {
public:
    struct Probe {
        ImageFileType type = ImageFileType::other;
        std::optional<std::int64_t> width;  // stored pixel size, before any orientation is applied
        std::optional<std::int64_t> height;
    };

    virtual ~ImageCodec() = default;
    // What the file's header says, without decoding the pixels; nothing when it isn't a readable image.
    [[nodiscard]] virtual std::optional<Probe> probe(const std::filesystem::path& file) const = 0;
    // The first image, turned upright as its orientation tag says, decoded scaled so that its longest
    // side is at most `maxSide` (never enlarged). Nothing when it can't be decoded.
    [[nodiscard]] virtual std::unique_ptr<DecodedImage> decode(const std::filesystem::path& file,
                                                               std::int64_t maxSide) const = 0;
    // The image drawn over opaque white; nothing when that fails.
    [[nodiscard]] virtual std::unique_ptr<DecodedImage> flattenOverWhite(const DecodedImage& image) const = 0;
    // Writes one image; `quality` 0..1 applies to JPEG. False when the file couldn't be written whole.
    [[nodiscard]] virtual bool encode(const DecodedImage& image, const std::filesystem::path& file,
                                      ImageFileType type, double quality) const = 0;
};

}  // namespace vantrelle
