// SPDX-License-Identifier: MIT
#include <zembra/series/Quantile.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace zembra;

TEST(Quantile, InterpolatesBetweenSamples) {
    const std::vector<double> samples = {1.0, 2.0, 4.0, 8.0};
    EXPECT_EQ(quantile(samples, 0.0), 1.0);
    EXPECT_EQ(quantile(samples, 0.25), 1.75);
    EXPECT_EQ(quantile(samples, 0.5), 3.0);
    EXPECT_EQ(quantile(samples, 1.0), 8.0);
    EXPECT_EQ(quantile(samples, 7.0), 8.0);
    EXPECT_TRUE(std::isnan(quantile({}, 0.5)));
}
