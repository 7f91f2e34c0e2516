// SPDX-License-Identifier: MIT
#include "FailingAllocator.h"

#include <zembra/data/Samples.h>

#include <gtest/gtest.h>

using namespace zembra;
namespace allocator = zembra::test::allocator;

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
    const std::size_t before = allocator::taken();
    std::vector<double> noticed(1);
    ASSERT_EQ(allocator::taken(), before + 1) << "the counter does not count";
    double sum = 0.0;
    for (int i = 0; i < 50; ++i) {
        for (double& v : x)
            v = now++;
        ring.append(x, y);
        sum += ring.bounds(linear, linear).x.max + ring.yExtent(5, ring.size()).max;
    }
    EXPECT_EQ(allocator::taken(), before + 1);
    EXPECT_GT(sum, noticed[0]);
}
