#include "calc/CalcFunctions.h"

#include <array>
#include <cmath>
#include <numbers>

namespace vantrelle {

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

// sin and cos of whole multiples of 90 degrees are exact, so "sin 180" is 0 and not 1.2e-16.
std::optional<double> quarterTurnSine(double degrees, bool cosine) {
    const double turns = std::fmod(degrees, 360.0);
    if (std::fmod(turns, 90.0) != 0.0) return std::nullopt;
    int quarter = static_cast<int>(turns / 90.0);
    if (quarter < 0) quarter += 4;
    if (cosine) quarter = (quarter + 1) % 4;
    static constexpr std::array<double, 4> values{0.0, 1.0, 0.0, -1.0};
    return values[static_cast<std::size_t>(quarter)];
}

double sine(double degrees) {
    if (auto exact = quarterTurnSine(degrees, false)) return *exact;
    return std::sin(degrees * kRadiansPerDegree);
}

double cosine(double degrees) {
    if (auto exact = quarterTurnSine(degrees, true)) return *exact;
    return std::cos(degrees * kRadiansPerDegree);
}

double tangent(double degrees) {
    const double s = sine(degrees);
    const double c = cosine(degrees);
    if (c == 0.0) return s / 0.0;  // ±infinity, which the caller reports as not a number
    if (s == 0.0) return 0.0;
    return std::tan(degrees * kRadiansPerDegree);
}

struct Function {
    std::string_view name;
    double (*apply)(double);
};

const std::array<Function, 17> kFunctions{{
    {"sqrt", [](double x) { return std::sqrt(x); }},
    {"cbrt", [](double x) { return std::cbrt(x); }},
    {"sin", sine},
    {"cos", cosine},
    {"tan", tangent},
    {"asin", [](double x) { return std::asin(x) / kRadiansPerDegree; }},
    {"acos", [](double x) { return std::acos(x) / kRadiansPerDegree; }},
    {"atan", [](double x) { return std::atan(x) / kRadiansPerDegree; }},
    {"ln", [](double x) { return std::log(x); }},
    {"log", [](double x) { return std::log10(x); }},
    {"log2", [](double x) { return std::log2(x); }},
    {"log10", [](double x) { return std::log10(x); }},
    {"abs", [](double x) { return std::fabs(x); }},
    {"round", [](double x) { return std::round(x); }},
    {"floor", [](double x) { return std::floor(x); }},
    {"ceil", [](double x) { return std::ceil(x); }},
    {"exp", [](double x) { return std::exp(x); }},
}};

const Function* find(std::string_view name) {
    for (const auto& function : kFunctions) {
        if (function.name == name) return &function;
    }
    return nullptr;
}

}  // namespace

bool CalcFunctions::isFunction(std::string_view name) {
    return find(name) != nullptr;
}

std::optional<double> CalcFunctions::apply(std::string_view name, double x) {
    const Function* function = find(name);
    if (!function) return std::nullopt;
    return function->apply(x);
}

}  // namespace vantrelle
