#include "files/ImageConversion.h"

#include <algorithm>
#include <limits>

namespace vantrelle {

namespace {

struct Row {
    ImageConversion conversion;
    std::string_view raw;
    std::string_view title;
    std::string_view suffix;
    double quality;
};

constexpr std::array<Row, 5> kRows{{
    {ImageConversion::png, "png", "PNG", "", 1.0},
    {ImageConversion::jpg, "jpg", "JPG", "", 0.9},
    {ImageConversion::halfSize, "halfSize", "\u00bd size", " (half size)", 0.88},
    {ImageConversion::max1920, "max1920", "1920px", " (1920px)", 0.88},
    {ImageConversion::compress, "compress", "Compress", " (compressed)", 0.6},
}};

const Row& row(ImageConversion conversion) {
    return kRows[static_cast<std::size_t>(conversion)];
}

constexpr std::int64_t kMaxSide = 1920;
constexpr std::int64_t kSmallestHalvable = 64;

}  // namespace

std::string_view rawName(ImageConversion conversion) {
    return row(conversion).raw;
}

std::optional<ImageConversion> imageConversionNamed(std::string_view raw) {
    for (const Row& entry : kRows) {
        if (entry.raw == raw) return entry.conversion;
    }
    return std::nullopt;
}

std::string_view conversionTitle(ImageConversion conversion) {
    return row(conversion).title;
}

ImageFileType outputType(ImageConversion conversion, ImageFileType sourceType) {
    switch (conversion) {
        case ImageConversion::png:
            return ImageFileType::png;
        case ImageConversion::jpg:
        case ImageConversion::compress:
            return ImageFileType::jpeg;
        case ImageConversion::halfSize:
        case ImageConversion::max1920:
            break;
    }
    // Resizing keeps a PNG lossless; everything else becomes a JPEG.
    return sourceType == ImageFileType::png ? ImageFileType::png : ImageFileType::jpeg;
}

double outputQuality(ImageConversion conversion) {
    return row(conversion).quality;
}

std::string_view nameSuffix(ImageConversion conversion) {
    return row(conversion).suffix;
}

std::int64_t targetLongestSide(ImageConversion conversion, std::int64_t longestSide) {
    switch (conversion) {
        case ImageConversion::halfSize:
            return std::max<std::int64_t>(longestSide / 2, 1);
        case ImageConversion::max1920:
            return std::min(longestSide, kMaxSide);
        default:
            return longestSide;
    }
}

std::vector<ImageConversion> conversionOptions(ImageFileType sourceType,
                                               std::optional<std::int64_t> longestSide) {
    const std::int64_t side = longestSide.value_or(std::numeric_limits<std::int64_t>::max());
    std::vector<ImageConversion> options;
    if (sourceType != ImageFileType::png) options.push_back(ImageConversion::png);
    if (sourceType != ImageFileType::jpeg) options.push_back(ImageConversion::jpg);
    if (side >= kSmallestHalvable) options.push_back(ImageConversion::halfSize);
    if (side > kMaxSide) options.push_back(ImageConversion::max1920);
    options.push_back(ImageConversion::compress);
    return options;
}

}  // namespace vantrelle
