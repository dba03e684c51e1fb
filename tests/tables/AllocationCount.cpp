#include "tables/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

// The operators stand apart from the tests: inlined next to a `new`, the compiler takes `free` for
// a mismatch.

namespace {

std::atomic<std::size_t> allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace tables {

std::size_t allocationCount() {
    return allocations;
}

}  // namespace tables
