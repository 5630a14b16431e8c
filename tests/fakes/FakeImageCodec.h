#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#include "platform/ImageCodec.h"

namespace vantrelle::testing {

// Images by file name: a test declares what a file "is", and encode() writes a small marker file, so
// store logic runs without an image library.
class FakeImageCodec final : public ImageCodec {
public:
    struct Image final : DecodedImage {
        std::int64_t w = 0, h = 0;
        bool alpha = false;
        [[nodiscard]] std::int64_t width() const override { return w; }
        [[nodiscard]] std::int64_t height() const override { return h; }
        [[nodiscard]] bool hasAlpha() const override { return alpha; }
    };

    void declare(const std::filesystem::path& file, ImageFileType type, std::int64_t w, std::int64_t h) {
        m_probes[file.string()] = Probe{type, w, h};
    }

    [[nodiscard]] std::optional<Probe> probe(const std::filesystem::path& file) const override {
        const auto it = m_probes.find(file.string());
        return it == m_probes.end() ? std::nullopt : std::optional(it->second);
    }
    [[nodiscard]] std::unique_ptr<DecodedImage> decode(const std::filesystem::path& file,
                                                       std::int64_t maxSide) const override {
        auto found = probe(file);
        if (!found) return nullptr;
        auto image = std::make_unique<Image>();
        image->w = std::min(*found->width, maxSide);
        image->h = std::min(*found->height, maxSide);
        return image;
    }
    [[nodiscard]] std::unique_ptr<DecodedImage> flattenOverWhite(const DecodedImage& image) const override {
        auto flat = std::make_unique<Image>();
        flat->w = image.width();
        flat->h = image.height();
        return flat;
    }
    [[nodiscard]] bool encode(const DecodedImage&, const std::filesystem::path& file, ImageFileType,
                              double) const override {
        std::ofstream out(file);
        out << "image";
        // A refused folder behaves like a full disk: half a file is left behind and the write fails.
        return static_cast<bool>(out) && file.parent_path() != refusedFolder;
    }

    std::filesystem::path refusedFolder;

private:
    std::map<std::string, Probe> m_probes;
};

}  // namespace vantrelle::testing
