// SPDX-License-Identifier: MIT
#include "Samples.h"

#include <gtest/gtest.h>

#include <set>

namespace viewer {
namespace {

TEST(Samples, HaveNamesTitlesAndDataToShow) {
    const std::vector<Sample> samples = sampleCharts();
    EXPECT_GE(samples.size(), 3U);
    std::set<std::string> names;
    for (const Sample& sample : samples) {
        EXPECT_TRUE(names.insert(sample.name).second) << sample.name;
        EXPECT_NE(sample.plot->title(), "") << sample.name;
        ASSERT_FALSE(sample.plot->series().empty()) << sample.name;
        for (const auto& series : sample.plot->series()) {
            const zembra::Bounds bounds =
                series->bounds(sample.plot->axis(2).scale(), sample.plot->axis(0).scale());
            EXPECT_FALSE(bounds.x.isEmpty() || bounds.y.isEmpty()) << sample.name;
        }
    }
}

TEST(Samples, AreTheSameEveryTime) {
    const auto boundsOf = [] {
        const Sample sample = sampleCharts().back();
        return sample.plot->series().front()->bounds(zembra::Scale(), zembra::Scale());
    };
    EXPECT_EQ(boundsOf().x, boundsOf().x);
    EXPECT_EQ(boundsOf().y, boundsOf().y);
}

} // namespace
} // namespace viewer
