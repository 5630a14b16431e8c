#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>

#include "media/Artwork.h"

namespace vantrelle {

// The last few artworks by key, first in first out: neither a hit nor storing a key again refreshes
// its place. Small on purpose; not thread-safe (it lives on one queue).
class ArtworkCache {
public:
    static constexpr std::size_t kCapacity = 8;

    [[nodiscard]] std::optional<Artwork> find(const std::string& key) const;
    void remember(const std::string& key, Artwork artwork);
    [[nodiscard]] std::size_t size() const { return m_images.size(); }

private:
    std::map<std::string, Artwork> m_images;
    std::deque<std::string> m_order;
};

}  // namespace vantrelle
