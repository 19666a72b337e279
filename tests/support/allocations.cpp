// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Atomic, because the OpenGL driver allocates in its own threads.
std::atomic<std::size_t> count;
std::atomic<std::size_t> bytes;

}  // namespace

std::size_t AllocationCount() {
    return count;
}

std::size_t AllocatedBytes() {
    return bytes;
}

// A sanitizer has its own version of every form that is not replaced here, and memory from one
// version must not be freed by the other. So both halves of a pair are replaced, or neither, as
// with the forms for larger alignments.
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
