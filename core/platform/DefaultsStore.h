#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantrelle {

using Bytes = std::vector<std::uint8_t>;
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, std::vector<std::string>, Bytes,
                                   std::vector<double>>;

// The user defaults: a typed key-value store. The typed reads give nothing for an absent key or a
// value of another type, and the caller falls back to its default.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;

    [[nodiscard]] virtual std::optional<DefaultsValue> object(std::string_view key) const = 0;
    virtual void set(std::string_view key, DefaultsValue value) = 0;
    virtual void remove(std::string_view key) = 0;

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const { return read<bool>(key); }
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const {
        return read<std::int64_t>(key);
    }
    [[nodiscard]] std::optional<std::string> string(std::string_view key) const {
        return read<std::string>(key);
    }
    [[nodiscard]] std::optional<std::vector<std::string>> stringArray(std::string_view key) const {
        return read<std::vector<std::string>>(key);
    }
    [[nodiscard]] std::optional<Bytes> bytes(std::string_view key) const { return read<Bytes>(key); }
    // An array of numbers. An empty array reads as one whatever it was stored as, since JSON can't tell.
    [[nodiscard]] std::optional<std::vector<double>> realArray(std::string_view key) const {
        auto value = object(key);
        if (!value) return std::nullopt;
        if (auto* numbers = std::get_if<std::vector<double>>(&*value)) return std::move(*numbers);
        if (auto* strings = std::get_if<std::vector<std::string>>(&*value); strings && strings->empty())
            return std::vector<double>{};
        return std::nullopt;
    }
    // A stored integer reads as a double too, as a number would.
    [[nodiscard]] std::optional<double> real(std::string_view key) const {
        auto value = object(key);
        if (!value) return std::nullopt;
        if (auto* d = std::get_if<double>(&*value)) return *d;
        if (auto* i = std::get_if<std::int64_t>(&*value)) return static_cast<double>(*i);
        return std::nullopt;
    }

private:
    template <typename T>
    [[nodiscard]] std::optional<T> read(std::string_view key) const {
        auto value = object(key);
        if (!value) return std::nullopt;
        if (auto* typed = std::get_if<T>(&*value)) return std::move(*typed);
        return std::nullopt;
    }
};

}  // namespace vantrelle
