#include "calc/CalcFormat.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace vantrelle {

namespace {

constexpr int kScientificDigits = 6;

// A positive decimal number as its significant digits and the count of digits before the point:
// 1234.5 is {"12345", 4}, 0.0012 is {"12", -2}.
struct Decimal {
    std::string digits;
    int integerDigits = 0;
};

Decimal shortestDecimal(double magnitude) {
    std::array<char, 64> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    Decimal decimal;
    for (char c : text.substr(0, e)) {
        if (c != '.') decimal.digits.push_back(c);
    }
    decimal.integerDigits = std::atoi(std::string(text.substr(e + 1)).c_str()) + 1;
    return decimal;
}

// Keeps the first `keep` digits (keep may be 0 or negative), rounding half to even.
void roundTo(Decimal& decimal, int keep) {
    if (keep >= static_cast<int>(decimal.digits.size())) return;
    if (keep < 0) {
        decimal.digits.clear();
        return;
    }
    const auto cut = static_cast<std::size_t>(keep);
    const char next = decimal.digits[cut];
    const bool restNonZero = decimal.digits.find_first_not_of('0', cut + 1) != std::string::npos;
    const bool previousOdd = cut > 0 && (decimal.digits[cut - 1] - '0') % 2 == 1;
    const bool up = next > '5' || (next == '5' && (restNonZero || previousOdd));
    decimal.digits.resize(cut);
    if (!up) return;
    std::size_t i = decimal.digits.size();
    while (i > 0 && decimal.digits[i - 1] == '9') {
        decimal.digits[i - 1] = '0';
        --i;
    }
    if (i == 0) {
        decimal.digits.insert(decimal.digits.begin(), '1');
        ++decimal.integerDigits;
    } else {
        ++decimal.digits[i - 1];
    }
}

void dropTrailingZeros(Decimal& decimal) {
    const std::size_t last = decimal.digits.find_last_not_of('0');
    decimal.digits.resize(last == std::string::npos ? 0 : last + 1);
}

std::string grouped(const std::string& integer) {
    std::string out;
    const std::size_t n = integer.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) out.push_back(',');
        out.push_back(integer[i]);
    }
    return out;
}

std::string decimalStyle(double magnitude, int maxFraction) {
    Decimal decimal = shortestDecimal(magnitude);
    roundTo(decimal, decimal.integerDigits + maxFraction);
    dropTrailingZeros(decimal);
    if (decimal.digits.empty()) return "0";
    const int intDigits = decimal.integerDigits;
    std::string integer;
    std::string fractionDigits;
    if (intDigits <= 0) {
        integer = "0";
        fractionDigits = std::string(static_cast<std::size_t>(-intDigits), '0') + decimal.digits;
    } else if (static_cast<std::size_t>(intDigits) >= decimal.digits.size()) {
        integer =
            decimal.digits + std::string(static_cast<std::size_t>(intDigits) - decimal.digits.size(), '0');
    } else {
        integer = decimal.digits.substr(0, static_cast<std::size_t>(intDigits));
        fractionDigits = decimal.digits.substr(static_cast<std::size_t>(intDigits));
    }
    std::string out = grouped(integer);
    if (!fractionDigits.empty()) out += "." + fractionDigits;
    return out;
}

std::string scientificStyle(double magnitude) {
    Decimal decimal = shortestDecimal(magnitude);
    roundTo(decimal, kScientificDigits);
    dropTrailingZeros(decimal);
    std::string out(1, decimal.digits[0]);
    if (decimal.digits.size() > 1) out += "." + decimal.digits.substr(1);
    return out + "e" + std::to_string(decimal.integerDigits - 1);
}

}  // namespace

std::string CalcFormat::format(double value, int maxFraction) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "∞" : "-∞";
    if (maxFraction < 0) maxFraction = 0;
    const double magnitude = std::fabs(value);
    if (magnitude == 0) return "0";
    const bool decimal = magnitude >= 1e-6 && magnitude < 1e15;
    std::string text = decimal ? decimalStyle(magnitude, maxFraction) : scientificStyle(magnitude);
    if (value < 0 && text != "0") text.insert(text.begin(), '-');
    return text;
}

}  // namespace vantrelle
