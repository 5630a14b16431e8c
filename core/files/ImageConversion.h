#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/ImageCodec.h"

namespace vantrelle {

// The five conversions the shelf offers, in the order it shows them; the raw names are what is logged.
enum class ImageConversion { png, jpg, halfSize, max1920, compress };

inline constexpr std::array<ImageConversion, 5> kAllImageConversions{
    ImageConversion::png, ImageConversion::jpg, ImageConversion::halfSize, ImageConversion::max1920,
    ImageConversion::compress};

[[nodiscard]] std::string_view rawName(ImageConversion conversion);
[[nodiscard]] std::optional<ImageConversion> imageConversionNamed(std::string_view raw);
// The strip's label: "PNG", "JPG", "½ size", "1920px", "Compress".
[[nodiscard]] std::string_view conversionTitle(ImageConversion conversion);

[[nodiscard]] ImageFileType outputType(ImageConversion conversion, ImageFileType sourceType);
[[nodiscard]] double outputQuality(ImageConversion conversion);
// Appended to the output's base name: " (half size)", " (1920px)", " (compressed)" or nothing.
[[nodiscard]] std::string_view nameSuffix(ImageConversion conversion);
// The longest side of the output for a source whose longest side is `longestSide`.
[[nodiscard]] std::int64_t targetLongestSide(ImageConversion conversion, std::int64_t longestSide);

// The conversions that make sense for a source of this type and longest side, in order. An unknown
// size hides nothing.
[[nodiscard]] std::vector<ImageConversion> conversionOptions(ImageFileType sourceType,
                                                             std::optional<std::int64_t> longestSide);

}  // namespace vantrelle
