#include "app/SupportMail.h"

#include <fmt/format.h>

namespace vantrelle {

namespace {

bool isUnreserved(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

}  // namespace

std::string percentEncoded(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        if (isUnreserved(c)) {
            out += ch;
        } else {
            out += fmt::format("%{:02X}", c);
        }
    }
    return out;
}

std::string supportMailto(std::string_view subject, std::string_view message, const SupportContext& context) {
    const std::string_view title = subject.empty() ? std::string_view("Vantrelle feedback") : subject;
    // Mail bodies end lines with CRLF.
    std::string body;
    for (const char ch : message) {
        if (ch == '\n') {
            body += "\r\n";
        } else if (ch != '\r') {
            body += ch;
        }
    }
    body += fmt::format("\r\n\r\n--\r\nVantrelle {} on {}", context.version, context.platform);
    return fmt::format("mailto:{}?subject={}&body={}", kSupportAddress, percentEncoded(title),
                       percentEncoded(body));
}

}  // namespace vantrelle
