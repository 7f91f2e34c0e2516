// SPDX-License-Identifier: MIT
#include <zembra/data/Samples.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocations = 0;

} // namespace

// Counted for the whole program; the tests here look at differences only.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

// Sanitizers bring one of their own, whose memory must not come to the operators below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++allocations;
    return std::malloc(size > 0 ? size : 1);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

using namespace zembra;

TEST(Streaming, AppendingAndAskingAllocatesNothingAfterTheFirstFrame) {
    Samples ring = Samples::streamed(100000);
    const std::vector<double> y(10000, 1.5);
    std::vector<double> x(y.size());
    double now = 0.0;
    const auto frame = [&] {
        for (double& v : x)
            v = now++;
        ring.append(x, y);
        return ring.bounds(Scale(), Scale()).x.max + ring.yExtent(5, ring.size()).max;
    };
    const Scale linear;
    frame();
    const std::size_t before = allocations;
    std::vector<double> noticed(1);
    ASSERT_EQ(allocations, before + 1) << "the counter does not count";
    double sum = 0.0;
    for (int i = 0; i < 50; ++i) {
        for (double& v : x)
            v = now++;
        ring.append(x, y);
        sum += ring.bounds(linear, linear).x.max + ring.yExtent(5, ring.size()).max;
    }
    EXPECT_EQ(allocations, before + 1);
    EXPECT_GT(sum, noticed[0]);
}
