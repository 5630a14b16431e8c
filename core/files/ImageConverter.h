#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "files/ImageConversion.h"
#include "platform/ImageCodec.h"

namespace vantrelle {

// Turns one image file into another beside it. Free of shared state: call it from a worker queue.
class ImageConverter {
public:
    enum class Failure { unreadable, unwritable };

    // Outputs go beside the source; where that can't be written, into `downloads` (if there is one and
    // it exists), then into `converted` (the data root's "Converted", created when it is reached).
    ImageConverter(const ImageCodec& codec, std::optional<std::filesystem::path> downloads,
                   std::filesystem::path converted);

    // Judged by the name alone; no file is opened. Vector and page formats (SVG, PDF) don't count.
    [[nodiscard]] static bool isImage(const std::filesystem::path& file);
    [[nodiscard]] static std::string_view describe(Failure failure);

    [[nodiscard]] std::vector<ImageConversion> options(const std::filesystem::path& file) const;
    [[nodiscard]] std::variant<std::filesystem::path, Failure> convert(const std::filesystem::path& source,
                                                                       ImageConversion conversion) const;

private:
    [[nodiscard]] bool writeInto(const std::filesystem::path& folder, const std::filesystem::path& source,
                                 const std::string& baseName, ImageFileType type, double quality,
                                 const DecodedImage& image, std::filesystem::path& written) const;

    struct Destination {
        std::filesystem::path folder;
        bool create = false;
    };

    const ImageCodec& m_codec;
    std::vector<Destination> m_fallbacks;
};

// The first free "<base>.<ext>", "<base> 2.<ext>", "<base> 3.<ext>"… in `folder`; the source itself
// never counts as free.
[[nodiscard]] std::filesystem::path freeOutputName(const std::filesystem::path& folder,
                                                   const std::string& baseName, std::string_view extension,
                                                   const std::filesystem::path& source);

}  // namespace vantrelle
