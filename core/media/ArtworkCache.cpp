#include "media/ArtworkCache.h"

namespace vantrelle {

std::optional<Artwork> ArtworkCache::find(const std::string& key) const {
    auto it = m_images.find(key);
    if (it == m_images.end()) return std::nullopt;
    return it->second;
}

void ArtworkCache::remember(const std::string& key, Artwork artwork) {
    // A key in the order twice would, when its older place falls out, take the newer picture along.
    if (auto [it, inserted] = m_images.insert_or_assign(key, std::move(artwork)); !inserted) return;
    m_order.push_back(key);
    while (m_order.size() > kCapacity) {
        m_images.erase(m_order.front());
        m_order.pop_front();
    }
}

}  // namespace vantrelle
