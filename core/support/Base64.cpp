#include "support/Base64.h"

#include <array>

namespace vantrelle {

namespace {
constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int valueOf(char c) {
    const auto at = kAlphabet.find(c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}
}  // namespace

std::string base64Encode(const Bytes& bytes) {
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t left = bytes.size() - i;
        const std::uint32_t chunk = (std::uint32_t{bytes[i]} << 16) |
                                    (left > 1 ? std::uint32_t{bytes[i + 1]} << 8 : 0) |
                                    (left > 2 ? std::uint32_t{bytes[i + 2]} : 0);
        out += kAlphabet[(chunk >> 18) & 63];
        out += kAlphabet[(chunk >> 12) & 63];
        out += left > 1 ? kAlphabet[(chunk >> 6) & 63] : '=';
        out += left > 2 ? kAlphabet[chunk & 63] : '=';
    }
    return out;
}

std::optional<Bytes> base64Decode(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    Bytes out;
    out.reserve(text.size() / 4 * 3);
    for (std::size_t i = 0; i < text.size(); i += 4) {
        std::array<int, 4> v{};
        int padding = 0;
        for (int k = 0; k < 4; ++k) {
            const char c = text[i + static_cast<std::size_t>(k)];
            const bool last = i + 4 == text.size();
            if (c == '=' && last && k >= 2) {
                ++padding;
                v[static_cast<std::size_t>(k)] = 0;
                continue;
            }
            if (padding > 0) return std::nullopt;  // data after padding
            v[static_cast<std::size_t>(k)] = valueOf(c);
            if (v[static_cast<std::size_t>(k)] < 0) return std::nullopt;
        }
        const std::uint32_t chunk =
            (static_cast<std::uint32_t>(v[0]) << 18) | (static_cast<std::uint32_t>(v[1]) << 12) |
            (static_cast<std::uint32_t>(v[2]) << 6) | static_cast<std::uint32_t>(v[3]);
        out.push_back(static_cast<std::uint8_t>(chunk >> 16));
        if (padding < 2) out.push_back(static_cast<std::uint8_t>(chunk >> 8));
        if (padding < 1) out.push_back(static_cast<std::uint8_t>(chunk));
    }
    return out;
}

}  // namespace vantrelle
