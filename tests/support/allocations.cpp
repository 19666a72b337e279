#include "tests/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// The OpenGL driver allocates from threads of its own.
std::atomic<std::size_t> count;

}  // namespace

std::size_t AllocationCount() {
    return count;
}

// The array and nothrow forms of the standard library end here, too.
void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
