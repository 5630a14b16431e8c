#pragma once

#include <atomic>
#include <cstddef>

namespace vantrelle::testing {

// Counts calls of the global operator new in this binary. Link AllocationCounter.cpp into a binary of
// its own: it replaces operator new for everything in it.
std::size_t allocationCount();

// Allocations made while the object lived.
class AllocationScope {
public:
    AllocationScope() : m_start(allocationCount()) {}
    [[nodiscard]] std::size_t allocations() const { return allocationCount() - m_start; }

private:
    std::size_t m_start;
};

}  // namespace vantrelle::testing
