#pragma once

#include <string>
#include <string_view>

namespace vantrelle {

inline constexpr std::string_view kSupportAddress = "support@vantrelle.app";

// What the support form sends along, so a report says where it came from.
struct SupportContext {
    std::string version;
    std::string platform;  // e.g. "xcb, compositor" or "offscreen"
};

// A mailto: link to the support address with the user's subject and message, the context appended
// below the message. Every character outside the unreserved set is percent-encoded as UTF-8, so line
// breaks, ampersands and non-ASCII text survive any mail handler. An empty subject gets a default one.
[[nodiscard]] std::string supportMailto(std::string_view subject, std::string_view message,
                                        const SupportContext& context);

// Percent-encoding of everything but A-Z a-z 0-9 - . _ ~.
[[nodiscard]] std::string percentEncoded(std::string_view text);

}  // namespace vantrelle
