#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>

#include "media/Artwork.h"

namespace vantrelle {

// The last few artworks by key, first in first out: a hit doesn't refresh an entry, and a key stored
// twice takes two places in the order. Small on purpose; not thread-safe (it lives on one queue).
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
