#include "AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) // NOLINT(cppcoreguidelines-no-malloc)
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc)
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc)
}

namespace vistrel {

std::size_t allocationsSoFar() {
    return allocations;
}

} // namespace vistrel
