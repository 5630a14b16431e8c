#include "calc/UnitTable.h"

namespace vantrelle {

namespace {

using D = UnitTable::Dimension;

// The one table of conversion factors. The base of each dimension is an SI unit; every factor is the
// double nearest to the exact value where a definition exists.
constexpr UnitTable::Unit kUnits[] = {
    // length, base meter
    {"mm", D::length, 0.001, 0},
    {"cm", D::length, 0.01, 0},
    {"m", D::length, 1, 0},
    {"km", D::length, 1000, 0},
    {"in", D::length, 0.0254, 0},    // international inch (1959): exactly 25.4 mm
    {"ft", D::length, 0.3048, 0},    // international foot: 12 in
    {"yd", D::length, 0.9144, 0},    // international yard: 3 ft
    {"mi", D::length, 1609.344, 0},  // international statute mile: 5,280 ft
    // mass, base kilogram
    {"mg", D::mass, 1e-6, 0},
    {"g", D::mass, 0.001, 0},
    {"kg", D::mass, 1, 0},
    {"lb", D::mass, 0.45359237, 0},      // avoirdupois pound (1959), exact
    {"oz", D::mass, 0.028349523125, 0},  // avoirdupois ounce: 1/16 lb
    {"st", D::mass, 6.35029318, 0},      // stone: 14 lb
    // temperature, base kelvin; affine, so the offset is the kelvin value of 0 degrees
    {"c", D::temperature, 1, 273.15},                           // K = °C + 273.15
    {"f", D::temperature, 5.0 / 9.0, 273.15 - 32 * 5.0 / 9.0},  // K = (°F − 32) × 5/9 + 273.15
    {"k", D::temperature, 1, 0},
    // volume, base liter; US customary liquid measures, all from the gallon of 231 in³
    {"ml", D::volume, 0.001, 0},
    {"l", D::volume, 1, 0},
    {"gal", D::volume, 3.785411784, 0},       // US gallon: 231 in³
    {"qt", D::volume, 0.946352946, 0},        // US quart: 1/4 gal
    {"pt", D::volume, 0.473176473, 0},        // US pint: 1/8 gal
    {"cup", D::volume, 0.2365882365, 0},      // US customary cup: 1/16 gal, 8 fl oz
    {"floz", D::volume, 0.0295735295625, 0},  // US fluid ounce: 1/128 gal
    // speed, base meter per second
    {"kmh", D::speed, 1000.0 / 3600.0, 0},
    {"mph", D::speed, 0.44704, 0},  // international mile per hour
    {"ms", D::speed, 1, 0},
    {"kn", D::speed, 1852.0 / 3600.0, 0},  // knot: one nautical mile of 1852 m per hour
    // area, base square meter
    {"m2", D::area, 1, 0},
    {"km2", D::area, 1e6, 0},
    {"sqft", D::area, 0.09290304, 0},  // square international foot
    {"ac", D::area, 4046.8564224, 0},  // international acre: 43,560 ft²
    {"ha", D::area, 1e4, 0},
    // time, base second
    {"s", D::time, 1, 0},
    {"min", D::time, 60, 0},
    {"h", D::time, 3600, 0},
    {"d", D::time, 86400, 0},    // a day of 86,400 s, no leap seconds
    {"wk", D::time, 604800, 0},  // seven such days
    // data, base byte; "kb" and friends are decimal multiples, "kib" and friends binary
    {"b", D::data, 1, 0},
    {"kb", D::data, 1e3, 0},
    {"mb", D::data, 1e6, 0},
    {"gb", D::data, 1e9, 0},
    {"tb", D::data, 1e12, 0},
    {"kib", D::data, 1024.0, 0},
    {"mib", D::data, 1048576.0, 0},
    {"gib", D::data, 1073741824.0, 0},
    {"tib", D::data, 1099511627776.0, 0},
    // energy, base joule
    {"j", D::energy, 1, 0},
    {"kj", D::energy, 1000, 0},
    {"cal", D::energy, 4.184, 0},  // thermochemical calorie, exact
    {"kcal", D::energy, 4184, 0},  // 1000 thermochemical calories
    {"wh", D::energy, 3600, 0},    // watt hour
    {"kwh", D::energy, 3.6e6, 0},
};

constexpr UnitTable::Alias kAliases[] = {
    {"mm", "mm"},
    {"millimeter", "mm"},
    {"millimeters", "mm"},
    {"millimetre", "mm"},
    {"millimetres", "mm"},
    {"cm", "cm"},
    {"centimeter", "cm"},
    {"centimeters", "cm"},
    {"centimetre", "cm"},
    {"centimetres", "cm"},
    {"m", "m"},
    {"meter", "m"},
    {"meters", "m"},
    {"metre", "m"},
    {"metres", "m"},
    {"km", "km"},
    {"kilometer", "km"},
    {"kilometers", "km"},
    {"kilometre", "km"},
    {"kilometres", "km"},
    {"in", "in"},
    {"inch", "in"},
    {"inches", "in"},
    {"\"", "in"},
    {"ft", "ft"},
    {"foot", "ft"},
    {"feet", "ft"},
    {"'", "ft"},
    {"yd", "yd"},
    {"yard", "yd"},
    {"yards", "yd"},
    {"mi", "mi"},
    {"mile", "mi"},
    {"miles", "mi"},
    {"mg", "mg"},
    {"milligram", "mg"},
    {"milligrams", "mg"},
    {"g", "g"},
    {"gram", "g"},
    {"grams", "g"},
    {"kg", "kg"},
    {"kilo", "kg"},
    {"kilos", "kg"},
    {"kilogram", "kg"},
    {"kilograms", "kg"},
    {"lb", "lb"},
    {"lbs", "lb"},
    {"pound", "lb"},
    {"pounds", "lb"},
    {"oz", "oz"},
    {"ounce", "oz"},
    {"ounces", "oz"},
    {"st", "st"},
    {"stone", "st"},
    {"stones", "st"},
    {"c", "c"},
    {"celsius", "c"},
    {"centigrade", "c"},
    {"degc", "c"},
    {"f", "f"},
    {"fahrenheit", "f"},
    {"degf", "f"},
    {"k", "k"},
    {"kelvin", "k"},
    {"ml", "ml"},
    {"milliliter", "ml"},
    {"milliliters", "ml"},
    {"millilitre", "ml"},
    {"millilitres", "ml"},
    {"l", "l"},
    {"liter", "l"},
    {"liters", "l"},
    {"litre", "l"},
    {"litres", "l"},
    {"gal", "gal"},
    {"gallon", "gal"},
    {"gallons", "gal"},
    {"qt", "qt"},
    {"quart", "qt"},
    {"quarts", "qt"},
    {"pt", "pt"},
    {"pint", "pt"},
    {"pints", "pt"},
    {"cup", "cup"},
    {"cups", "cup"},
    {"floz", "floz"},
    {"fl-oz", "floz"},
    {"fluidounce", "floz"},
    {"fluidounces", "floz"},
    {"kmh", "kmh"},
    {"km/h", "kmh"},
    {"mph", "mph"},
    {"mi/h", "mph"},
    {"ms", "ms"},
    {"m/s", "ms"},
    {"kn", "kn"},
    {"knot", "kn"},
    {"knots", "kn"},
    // "²" is written "^2" by the time a line gets here, so "m²" arrives as "m^2".
    {"m2", "m2"},
    {"sqm", "m2"},
    {"m^2", "m2"},
    {"squaremeter", "m2"},
    {"squaremeters", "m2"},
    {"squaremetre", "m2"},
    {"squaremetres", "m2"},
    {"km2", "km2"},
    {"sqkm", "km2"},
    {"km^2", "km2"},
    {"sqft", "sqft"},
    {"squarefoot", "sqft"},
    {"squarefeet", "sqft"},
    {"ac", "ac"},
    {"acre", "ac"},
    {"acres", "ac"},
    {"ha", "ha"},
    {"hectare", "ha"},
    {"hectares", "ha"},
    {"s", "s"},
    {"sec", "s"},
    {"secs", "s"},
    {"second", "s"},
    {"seconds", "s"},
    {"min", "min"},
    {"mins", "min"},
    {"minute", "min"},
    {"minutes", "min"},
    {"h", "h"},
    {"hr", "h"},
    {"hour", "h"},
    {"hours", "h"},
    {"d", "d"},
    {"day", "d"},
    {"days", "d"},
    {"wk", "wk"},
    {"week", "wk"},
    {"weeks", "wk"},
    {"b", "b"},
    {"byte", "b"},
    {"bytes", "b"},
    {"kb", "kb"},
    {"kilobyte", "kb"},
    {"kilobytes", "kb"},
    {"mb", "mb"},
    {"megabyte", "mb"},
    {"megabytes", "mb"},
    {"gb", "gb"},
    {"gigabyte", "gb"},
    {"gigabytes", "gb"},
    {"tb", "tb"},
    {"terabyte", "tb"},
    {"terabytes", "tb"},
    {"kib", "kib"},
    {"mib", "mib"},
    {"gib", "gib"},
    {"tib", "tib"},
    {"j", "j"},
    {"joule", "j"},
    {"joules", "j"},
    {"kj", "kj"},
    {"kilojoule", "kj"},
    {"kilojoules", "kj"},
    {"cal", "cal"},
    {"calorie", "cal"},
    {"calories", "cal"},
    {"kcal", "kcal"},
    {"kilocalorie", "kcal"},
    {"kilocalories", "kcal"},
    {"wh", "wh"},
    {"watthour", "wh"},
    {"watthours", "wh"},
    {"kwh", "kwh"},
    {"kilowatthour", "kwh"},
    {"kilowatthours", "kwh"},
};

const UnitTable::Unit* unitNamed(std::string_view name) {
    for (const auto& unit : kUnits) {
        if (unit.name == name) return &unit;
    }
    return nullptr;
}

}  // namespace

std::span<const UnitTable::Unit> UnitTable::units() {
    return kUnits;
}

std::span<const UnitTable::Alias> UnitTable::aliases() {
    return kAliases;
}

const UnitTable::Unit* UnitTable::unitFor(std::string_view name) {
    for (const auto& alias : kAliases) {
        if (alias.name == name) return unitNamed(alias.unit);
    }
    return nullptr;
}

double UnitTable::convert(double amount, const Unit& from, const Unit& to) {
    if (&from == &to) return amount;
    return fromBase(to, toBase(from, amount));
}

}  // namespace vantrelle
