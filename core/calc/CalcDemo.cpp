#include "calc/CalcDemo.h"

namespace vantrelle {

std::vector<CalcEntry> CalcDemo::calcHistory() {
    return {
        {"5 km in mi", "3.106856 mi", "5 km = 3.106856 mi · 1 km = 0.621371 mi", 5000 / 1609.344},
        {"20% of 150", "30", "20% of 150", 30},
        {"24*7", "168", std::nullopt, 168},
    };
}

}  // namespace vantrelle
