#include "support/countedMemory.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

// The operators stand apart from the tests: inlined next to a `new`, the compiler takes `free` for
// a mismatch.

namespace {

std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> held = 0;

void release(void* memory) {
    held -= ::malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) {
        ++allocations;
        held += ::malloc_usable_size(memory);
    }
    return memory;
}

void* operator new(std::size_t size) {
    void* memory = ::operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    release(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    release(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}

namespace support {

std::size_t allocationCount() {
    return allocations;
}

std::size_t liveMemory() {
    return held;
}

}  // namespace support
