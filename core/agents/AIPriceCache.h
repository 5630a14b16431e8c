#pragma once

#include <string>
#include <unordered_map>

#include "agents/AIPricing.h"

namespace vantrelle {

// PERF NOTE: a price lookup lowercases the name and walks the table; a pass over many events meets few
// distinct models, so each is looked up once.
class AIPriceCache {
public:
    double cost(const AIUsageEvent& event) {
        auto it = m_rates.find(event.model);
        if (it == m_rates.end()) it = m_rates.emplace(event.model, AIPricing::rates(event.model)).first;
        return it->second.costOf(event);
    }

private:
    std::unordered_map<std::string, AIPricing> m_rates;
};

}  // namespace vantrelle
