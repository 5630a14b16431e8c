#include "calc/CurrencyNames.h"

#include "calc/CalcText.h"

namespace vantrelle {

namespace {

constexpr CurrencyNames::Alias kAliases[] = {
    {"$", "USD"},          {"usd", "USD"},      {"dollar", "USD"}, {"dollars", "USD"}, {"us dollar", "USD"},
    {"us dollars", "USD"}, {"bucks", "USD"},    {"€", "EUR"},      {"eur", "EUR"},     {"euro", "EUR"},
    {"euros", "EUR"},      {"£", "GBP"},        {"gbp", "GBP"},    {"pound", "GBP"},   {"pounds", "GBP"},
    {"quid", "GBP"},       {"sterling", "GBP"}, {"₹", "INR"},      {"inr", "INR"},     {"rupee", "INR"},
    {"rupees", "INR"},     {"rs", "INR"},       {"rs.", "INR"},    {"¥", "JPY"},       {"jpy", "JPY"},
    {"yen", "JPY"},        {"aud", "AUD"},      {"cad", "CAD"},    {"chf", "CHF"},     {"francs", "CHF"},
    {"cny", "CNY"},        {"yuan", "CNY"},     {"rmb", "CNY"},    {"sgd", "SGD"},     {"hkd", "HKD"},
    {"nzd", "NZD"},        {"sek", "SEK"},      {"nok", "NOK"},    {"dkk", "DKK"},     {"zar", "ZAR"},
    {"rand", "ZAR"},       {"krw", "KRW"},      {"won", "KRW"},    {"try", "TRY"},     {"lira", "TRY"},
    {"pln", "PLN"},        {"zloty", "PLN"},    {"czk", "CZK"},    {"huf", "HUF"},     {"mxn", "MXN"},
    {"pesos", "MXN"},      {"brl", "BRL"},      {"real", "BRL"},   {"reais", "BRL"},   {"thb", "THB"},
    {"baht", "THB"},       {"idr", "IDR"},      {"rupiah", "IDR"}, {"myr", "MYR"},     {"ringgit", "MYR"},
    {"php", "PHP"},        {"ils", "ILS"},      {"shekel", "ILS"}, {"shekels", "ILS"},
};

bool isThreeLetters(std::string_view text) {
    if (text.size() != 3) return false;
    for (char c : text) {
        if (c < 'a' || c > 'z') return false;
    }
    return true;
}

}  // namespace

std::span<const CurrencyNames::Alias> CurrencyNames::aliases() {
    return kAliases;
}

const std::set<std::string, std::less<>>& CurrencyNames::knownCodes() {
    static const std::set<std::string, std::less<>> codes = [] {
        std::set<std::string, std::less<>> all;
        for (const auto& alias : kAliases) all.emplace(alias.code);
        return all;
    }();
    return codes;
}

std::optional<std::string> CurrencyNames::currencyCode(std::string_view text) {
    const std::string lower = CalcText::lowercased(text);
    for (const auto& alias : kAliases) {
        if (alias.name == lower) return std::string(alias.code);
    }
    if (!isThreeLetters(lower)) return std::nullopt;
    std::string upper = lower;
    for (char& c : upper) c = static_cast<char>(c - 'a' + 'A');
    if (!knownCodes().contains(upper)) return std::nullopt;
    return upper;
}

}  // namespace vantrelle
