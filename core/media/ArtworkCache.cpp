#include "media/ArtworkCache.h"

namespace vantrelle {

std::optional<Artwork> ArtworkCache::find(const std::string& key) const {
    auto it = m_images.find(key);
    if (it == m_images.end()) return std::nullopt;
    return it->second;
}

void ArtworkCache::remember(const std::string& key, Artwork artwork) {
    m_images[key] = std::move(artwork);
    m_order.push_back(key);
    while (m_order.size() > kCapacity) {
        m_images.erase(m_order.front());
        m_order.pop_front();
    }
}

}  // namespace vantrelle
