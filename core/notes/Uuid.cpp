#include "notes/Uuid.h"

#include <array>
#include <cctype>
#include <cstdint>
#include <random>

namespace vantrelle {

namespace Uuid {

namespace {

constexpr std::string_view kHex = "0123456789ABCDEF";

bool isDashAt(std::size_t index) {
    return index == 8 || index == 13 || index == 18 || index == 23;
}

}  // namespace

std::string make() {
    // One generator per thread, seeded once from the system's entropy.
    thread_local std::mt19937_64 generator{[] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }()};
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t i = 0; i < bytes.size(); i += 8) {
        std::uint64_t value = generator();
        for (std::size_t j = 0; j < 8; ++j, value >>= 8) bytes[i + j] = static_cast<std::uint8_t>(value);
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);  // version 4
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);  // RFC 4122 variant
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += kHex[bytes[i] >> 4];
        text += kHex[bytes[i] & 0x0F];
    }
    return text;
}

std::optional<std::string> normalized(std::string_view text) {
    if (text.size() != 36) return std::nullopt;
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto c = static_cast<unsigned char>(result[i]);
        if (isDashAt(i)) {
            if (c != '-') return std::nullopt;
        } else if (std::isxdigit(c) == 0) {
            return std::nullopt;
        } else {
            result[i] = static_cast<char>(std::toupper(c));
        }
    }
    return result;
}

}  // namespace Uuid

}  // namespace vantrelle
