// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <limits>

using namespace zembra;
using namespace zembra::test;

namespace {

// Finds a sample wherever it is asked.
class EverywhereSeries : public Series {
public:
    Bounds bounds(const Scale&, const Scale&) const override { return {}; }
    void draw(Canvas&) const override {}
    void drawLegendKey(Canvas&, const Rect&) const override {}

protected:
    std::optional<NearestSample> findNearest(const Point&, const ScaleMap&,
                                             const ScaleMap&) const override {
        return NearestSample{};
    }
};

} // namespace

TEST(Series, OfAnyKindHasNoNearestSampleWhileItIsHidden) {
    Stage stage;
    EverywhereSeries series;
    EXPECT_TRUE(stage.nearest(series, {50.0, 50.0}));
    series.setVisible(false);
    EXPECT_FALSE(stage.nearest(series, {50.0, 50.0}));
    series.setVisible(true);
    EXPECT_TRUE(stage.nearest(series, {50.0, 50.0}));
}

TEST(Series, IsNearToNoPixelThatIsNotFinite) {
    Stage stage;
    const EverywhereSeries series;
    EXPECT_FALSE(stage.nearest(series, {notANumber, 50.0}));
    EXPECT_FALSE(stage.nearest(series, {50.0, std::numeric_limits<double>::infinity()}));
}

TEST(Series, RefusesAxesOfTheOtherDirection) {
    LineSeries series;
    EXPECT_FALSE(series.setAxes(0, 2));
    EXPECT_FALSE(series.setAxes(2, 2));
    EXPECT_EQ(series.xAxis(), 2);
    EXPECT_EQ(series.yAxis(), 0);
    EXPECT_TRUE(series.setAxes(3, 1));
    EXPECT_EQ(series.xAxis(), 3);
    EXPECT_EQ(series.yAxis(), 1);
}
