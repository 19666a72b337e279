// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// The OpenGL driver allocates from threads of its own.
std::atomic<std::size_t> count;
std::atomic<std::size_t> bytes;

}  // namespace

std::size_t AllocationCount() {
    return count;
}

std::size_t AllocatedBytes() {
    return bytes;
}

// Every form is replaced: a sanitizer has its own of whatever is missing here, and no memory may
// come from one and go to the other. Forms for larger alignments are left to it in pairs.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++count;
    bytes += size;
    return std::malloc(size == 0 ? 1 : size);
}

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, nothrow);
}

void* operator new(std::size_t size) {
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
