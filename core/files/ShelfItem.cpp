#include "files/ShelfItem.h"

#include <array>
#include <random>

namespace vantrelle {

std::string makeItemId() {
    static thread_local std::mt19937_64 generator{std::random_device{}()};
    std::array<unsigned char, 16> bytes{};
    for (std::size_t i = 0; i < bytes.size(); i += 8) {
        const std::uint64_t value = generator();
        for (std::size_t j = 0; j < 8; ++j) bytes[i + j] = static_cast<unsigned char>(value >> (8 * j));
    }
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0f) | 0x40);
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3f) | 0x80);
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back('-');
        text.push_back(kHex[bytes[i] >> 4]);
        text.push_back(kHex[bytes[i] & 15]);
    }
    return text;
}

}  // namespace vantrelle
