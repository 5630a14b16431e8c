#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace vantrelle {

// The units the calculator converts between. Every unit of a dimension converts through the dimension's
// base unit: base = amount × factor + offset (the offset is non-zero only for temperatures).
class UnitTable {
public:
    enum class Dimension { length, mass, temperature, volume, speed, area, time, data, energy };
    static constexpr std::array<std::string_view, 9> dimensionRawNames{
        "length", "mass", "temperature", "volume", "speed", "area", "time", "data", "energy"};

    struct Unit {
        std::string_view name;  // canonical name, one of the aliases
        Dimension dimension;
        double factor;  // base units per unit
        double offset;  // base value of zero units
    };

    struct Alias {
        std::string_view name;  // as typed, lower case
        std::string_view unit;  // Unit::name
    };

    [[nodiscard]] static std::span<const Unit> units();
    [[nodiscard]] static std::span<const Alias> aliases();

    // The unit a lower-case name stands for.
    [[nodiscard]] static const Unit* unitFor(std::string_view name);

    [[nodiscard]] static double toBase(const Unit& unit, double amount) {
        return amount * unit.factor + unit.offset;
    }
    [[nodiscard]] static double fromBase(const Unit& unit, double base) {
        return (base - unit.offset) / unit.factor;
    }
    // Both units must share a dimension.
    [[nodiscard]] static double convert(double amount, const Unit& from, const Unit& to);
};

}  // namespace vantrelle
