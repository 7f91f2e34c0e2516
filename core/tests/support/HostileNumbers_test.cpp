// SPDX-License-Identifier: MIT
#include "HostileNumbers.h"

#include <zembra/series/LineSeries.h>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <limits>

using namespace zembra;
using namespace zembra::test;

namespace {

// Claims to cover a negative number whatever the scale, and has its nearest sample nowhere.
class CarelessSeries : public Series {
public:
    Bounds bounds(const Scale&, const Scale&) const override { return {{1.0, 2.0}, {-1.0, 2.0}}; }
    void draw(Canvas&) const override {}
    void drawLegendKey(Canvas&, const Rect&) const override {}
    bool isNear = true;

protected:
    std::optional<NearestSample> findNearest(const Point&, const ScaleMap&,
                                             const ScaleMap&) const override {
        if (isNear)
            return NearestSample{};
        return NearestSample{0, std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0};
    }
};

// The failures that the harness reports about a series.
std::string complaintsAbout(const Series& series) {
    testing::TestPartResultArray results;
    {
        testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        expectHarmless(series, "careless");
    }
    std::string text;
    for (int i = 0; i < results.size(); ++i)
        text += results.GetTestPartResult(i).message();
    return text;
}

} // namespace

TEST(HostileNumbers, FindBoundsThatAScaleCannotPlace) {
    const std::string complaints = complaintsAbout(CarelessSeries());
    EXPECT_NE(complaints.find("linear / log y: least value -1"), std::string::npos);
    EXPECT_EQ(complaints.find("log / linear y: least value"), std::string::npos);
}

TEST(HostileNumbers, FindNearestSamplesThatAreNowhere) {
    CarelessSeries series;
    EXPECT_EQ(complaintsAbout(series).find("nearest"), std::string::npos);
    series.isNear = false;
    EXPECT_NE(complaintsAbout(series).find("nearest nan"), std::string::npos);
}

TEST(HostileNumbers, PassALineThroughAnything) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        return std::make_shared<LineSeries>(x, y);
    });
}

TEST(HostileNumbers, AreDrawnOnAStageOfAHundredPixels) {
    Stage stage;
    const LineSeries line({0.0, 10.0}, {0.0, 10.0});
    EXPECT_EQ(stage.draw(line), "setPen #0072b2 1.5\n"
                                "drawPolyline 0,100 100,0\n");
    EXPECT_EQ(stage.drawKey(line), "setPen #0072b2 1.5\n"
                                   "drawPolyline 0,5 20,5\n");
}
