// Checks every conversion factor against GNU units, through the units program itself: each pair of
// units of each dimension, both ways, to 1e-9 relative. Temperatures use units' functions
// (tempC(x) → tempF), since they are affine and a plain factor can't express them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "calc/UnitTable.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

// Our unit names, as GNU units spells them.
const std::map<std::string_view, std::string_view> kUnitsNames = {
    {"mm", "mm"},     {"cm", "cm"},      {"m", "m"},        {"km", "km"},   {"in", "inch"}, {"ft", "ft"},
    {"yd", "yard"},   {"mi", "mile"},    {"mg", "mg"},      {"g", "g"},     {"kg", "kg"},   {"lb", "lb"},
    {"oz", "ounce"},  {"st", "stone"},   {"c", "tempC"},    {"f", "tempF"}, {"k", "tempK"}, {"ml", "ml"},
    {"l", "liter"},   {"gal", "gallon"}, {"qt", "quart"},   {"pt", "pint"}, {"cup", "cup"}, {"floz", "floz"},
    {"kmh", "km/hr"}, {"mph", "mph"},    {"ms", "m/s"},     {"kn", "knot"}, {"m2", "m^2"},  {"km2", "km^2"},
    {"sqft", "ft^2"}, {"ac", "acre"},    {"ha", "hectare"}, {"s", "s"},     {"min", "min"}, {"h", "hr"},
    {"d", "day"},     {"wk", "week"},    {"b", "byte"},     {"kb", "kB"},   {"mb", "MB"},   {"gb", "GB"},
    {"tb", "TB"},     {"kib", "KiB"},    {"mib", "MiB"},    {"gib", "GiB"}, {"tib", "TiB"}, {"j", "J"},
    {"kj", "kJ"},     {"cal", "cal"},    {"kcal", "kcal"},  {"wh", "Wh"},   {"kwh", "kWh"},
};

struct Case {
    const UnitTable::Unit* from;
    const UnitTable::Unit* to;
    double amount;
};

TEST(UnitsCrossCheck, EveryPairOfEveryDimensionAgreesWithGnuUnits) {
    if (std::system("units --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "GNU units is not installed";

    std::vector<Case> cases;
    for (const auto& from : UnitTable::units()) {
        for (const auto& to : UnitTable::units()) {
            if (from.dimension != to.dimension) continue;
            if (from.dimension != UnitTable::Dimension::temperature) {
                cases.push_back({&from, &to, 3.7});
                continue;
            }
            for (double amount : {-40.0, 0.0, 37.5, 451.0}) {
                if (amount < 0 && from.name == "k") continue;  // units refuses kelvin below zero
                cases.push_back({&from, &to, amount});
            }
        }
    }

    // One run of units for all cases: "You have" and "You want" alternate on its standard input.
    std::ostringstream input;
    input.precision(17);
    for (const auto& c : cases) {
        ASSERT_TRUE(kUnitsNames.contains(c.from->name)) << c.from->name;
        const std::string from(kUnitsNames.at(c.from->name));
        const std::string to(kUnitsNames.at(c.to->name));
        if (c.from->dimension == UnitTable::Dimension::temperature)
            input << from << "(" << c.amount << ")\n" << to << "\n";
        else
            input << c.amount << " " << from << "\n" << to << "\n";
    }
    testing::TempDir folder;
    const auto inputFile = folder.write("pairs.txt", input.str());
    const auto outputFile = folder / "answers.txt";
    ASSERT_EQ(
        std::system(
            ("units -t -q -d 15 < '" + inputFile.string() + "' > '" + outputFile.string() + "'").c_str()),
        0);

    std::ifstream lines(outputFile);
    std::string line;
    std::size_t index = 0;
    while (std::getline(lines, line)) {
        if (line.empty()) continue;
        ASSERT_LT(index, cases.size()) << "more answers than questions: " << line;
        const Case& c = cases[index++];
        char* end = nullptr;
        const double theirs = std::strtod(line.c_str(), &end);
        ASSERT_TRUE(end && *end == '\0') << c.from->name << " → " << c.to->name << ": units said " << line;
        const double ours = UnitTable::convert(c.amount, *c.from, *c.to);
        const double tolerance = 1e-9 * std::max(std::fabs(theirs), std::fabs(ours)) + 1e-12;
        EXPECT_NEAR(ours, theirs, tolerance) << c.amount << " " << c.from->name << " → " << c.to->name;
    }
    EXPECT_EQ(index, cases.size());
}

}  // namespace
}  // namespace vantrelle
