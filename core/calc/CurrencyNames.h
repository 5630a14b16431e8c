#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace vantrelle {

// How people write currencies: symbols, codes and everyday names, and the codes the calculator knows.
class CurrencyNames {
public:
    struct Alias {
        std::string_view name;  // lower case
        std::string_view code;  // ISO 4217
    };

    [[nodiscard]] static std::span<const Alias> aliases();
    // The codes the calculator accepts: every code the alias table names.
    [[nodiscard]] static const std::set<std::string, std::less<>>& knownCodes();

    // The code for a name, symbol or code, in any case: "Euros" → EUR, "€" → EUR, "sek" → SEK.
    [[nodiscard]] static std::optional<std::string> currencyCode(std::string_view text);
};

}  // namespace vantrelle
