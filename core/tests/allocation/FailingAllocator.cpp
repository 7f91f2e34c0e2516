// SPDX-License-Identifier: MIT
#include "FailingAllocator.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

std::size_t untilFailure = never;
bool hasFailed = false;
std::size_t takenCount = 0;
std::size_t liveCount = 0;

void* allocate(std::size_t size) {
    if (untilFailure != never && untilFailure-- == 0) {
        untilFailure = never;
        hasFailed = true;
        return nullptr;
    }
    void* memory = std::malloc(size > 0 ? size : 1);
    if (memory) {
        ++takenCount;
        ++liveCount;
    }
    return memory;
}

} // namespace

namespace zembra::test::allocator {

void failAt(std::size_t number) {
    hasFailed = false;
    untilFailure = number;
}

bool stopFailing() {
    untilFailure = never;
    return hasFailed;
}

std::size_t taken() {
    return takenCount;
}

std::size_t live() {
    return liveCount;
}

} // namespace zembra::test::allocator

void* operator new(std::size_t size) {
    if (void* memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}

void operator delete(void* memory) noexcept {
    if (memory)
        --liveCount;
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
