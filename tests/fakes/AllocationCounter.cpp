#include "fakes/AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {
std::atomic<std::size_t> g_allocations{0};
}

namespace vantrelle::testing {
std::size_t allocationCount() {
    return g_allocations.load(std::memory_order_relaxed);
}
}  // namespace vantrelle::testing

void* operator new(std::size_t size) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    std::free(p);
}
