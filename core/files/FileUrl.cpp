#include "files/FileUrl.h"

#include <cctype>

namespace vantrelle {

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::optional<std::string> percentDecode(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            out.push_back(text[i]);
            continue;
        }
        if (i + 2 >= text.size()) return std::nullopt;
        const int high = hexValue(text[i + 1]);
        const int low = hexValue(text[i + 2]);
        if (high < 0 || low < 0) return std::nullopt;
        out.push_back(static_cast<char>(high * 16 + low));
        i += 2;
    }
    return out;
}

}  // namespace

std::optional<std::filesystem::path> pathFromFileUrl(std::string_view url) {
    constexpr std::string_view scheme = "file://";
    if (url.size() < scheme.size()) return std::nullopt;
    for (std::size_t i = 0; i < scheme.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(url[i])) != scheme[i]) return std::nullopt;
    }
    url.remove_prefix(scheme.size());
    const auto slash = url.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const std::string_view host = url.substr(0, slash);
    if (!host.empty() && host != "localhost") return std::nullopt;
    std::string_view rest = url.substr(slash);
    rest = rest.substr(0, rest.find_first_of("?#"));
    auto decoded = percentDecode(rest);
    if (!decoded || decoded->find('\0') != std::string::npos) return std::nullopt;
    return std::filesystem::path(*decoded);
}

std::string fileUrlFromPath(const std::filesystem::path& path) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string out = "file://";
    for (const unsigned char c : path.native()) {
        if (std::isalnum(c) || c == '/' || c == '-' || c == '.' || c == '_' || c == '~') {
            out.push_back(static_cast<char>(c));
        } else {
            out.push_back('%');
            out.push_back(kHex[c >> 4]);
            out.push_back(kHex[c & 15]);
        }
    }
    return out;
}

}  // namespace vantrelle
