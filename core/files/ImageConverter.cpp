#include "files/ImageConverter.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// Raster formats a desktop image library reads; SVG and PDF are left out on purpose.
constexpr std::array<std::string_view, 17> kImageExtensions{"png", "jpg",  "jpeg", "jpe",  "gif",  "bmp",
                                                            "tif", "tiff", "webp", "heic", "heif", "avif",
                                                            "ico", "ppm",  "pgm",  "pbm",  "tga"};

std::string lowerExtension(const fs::path& file) {
    std::string extension = file.extension().string();
    if (!extension.empty()) extension.erase(0, 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

std::optional<std::int64_t> longestSide(const ImageCodec::Probe& probe) {
    if (!probe.width || !probe.height) return std::nullopt;
    return std::max(*probe.width, *probe.height);
}

}  // namespace

ImageConverter::ImageConverter(const ImageCodec& codec, std::optional<fs::path> downloads, fs::path converted)
    : m_codec(codec) {
    if (downloads) m_fallbacks.push_back({std::move(*downloads), false});
    m_fallbacks.push_back({std::move(converted), true});
}

bool ImageConverter::isImage(const fs::path& file) {
    const std::string extension = lowerExtension(file);
    return std::find(kImageExtensions.begin(), kImageExtensions.end(), extension) != kImageExtensions.end();
}

std::string_view ImageConverter::describe(Failure failure) {
    return failure == Failure::unreadable ? "That file couldn't be read as an image."
                                          : "The converted image couldn't be saved.";
}

std::vector<ImageConversion> ImageConverter::options(const fs::path& file) const {
    const auto probe = m_codec.probe(file);
    if (!probe) return conversionOptions(ImageFileType::other, std::nullopt);
    return conversionOptions(probe->type, longestSide(*probe));
}

fs::path freeOutputName(const fs::path& folder, const std::string& baseName, std::string_view extension,
                        const fs::path& source) {
    const std::string dotted = "." + std::string(extension);
    fs::path candidate = folder / (baseName + dotted);
    std::error_code error;
    for (int n = 2; fs::exists(fs::symlink_status(candidate, error)) || candidate == source; ++n) {
        std::string numbered = baseName;
        numbered.append(" ").append(std::to_string(n)).append(dotted);
        candidate = folder / numbered;
    }
    return candidate;
}

std::variant<fs::path, ImageConverter::Failure> ImageConverter::convert(const fs::path& source,
                                                                        ImageConversion conversion) const {
    const auto probe = m_codec.probe(source);
    const auto side = probe ? longestSide(*probe) : std::nullopt;
    if (!side) return Failure::unreadable;
    auto image = m_codec.decode(source, targetLongestSide(conversion, *side));
    if (!image) return Failure::unreadable;

    const ImageFileType type = outputType(conversion, probe->type);
    if (type == ImageFileType::jpeg && image->hasAlpha()) {
        // JPEG has no alpha: transparent pixels would turn black without a background.
        if (auto flat = m_codec.flattenOverWhite(*image)) image = std::move(flat);
    }
    const std::string baseName = source.stem().string() + std::string(nameSuffix(conversion));
    std::vector<Destination> destinations{{source.parent_path(), false}};
    destinations.insert(destinations.end(), m_fallbacks.begin(), m_fallbacks.end());
    for (const Destination& destination : destinations) {
        std::error_code error;
        if (destination.create) fs::create_directories(destination.folder, error);
        fs::path written;
        if (writeInto(destination.folder, source, baseName, type, outputQuality(conversion), *image, written))
            return written;
    }
    return Failure::unwritable;
}

bool ImageConverter::writeInto(const fs::path& folder, const fs::path& source, const std::string& baseName,
                               ImageFileType type, double quality, const DecodedImage& image,
                               fs::path& written) const {
    std::error_code error;
    if (folder.empty() || !fs::is_directory(folder, error)) return false;
    const fs::path target =
        freeOutputName(folder, baseName, type == ImageFileType::png ? "png" : "jpg", source);
    if (!m_codec.encode(image, target, type, quality)) {
        fs::remove(target, error);  // a partial file is worse than none
        return false;
    }
    written = target;
    return true;
}

}  // namespace vantrelle
