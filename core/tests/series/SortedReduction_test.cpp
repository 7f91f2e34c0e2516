// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

// The highest point of all polylines.
Point highestOf(const RecordingPainter& painter) {
    Point highest{notANumber, 1e9};
    for (const std::string& line : painter.linesOf("drawPolyline")) {
        std::istringstream numbers(line.substr(line.find(' ')));
        Point point;
        char comma = 0;
        while (numbers >> point.x >> comma >> point.y)
            if (point.y < highest.y)
                highest = point;
    }
    return highest;
}

} // namespace

TEST(SortedReduction, APeakAmongAMillionSamplesStandsInItsColumnOnEveryScale) {
    constexpr std::size_t count = 1'000'000;
    std::vector<double> x(count);
    for (std::size_t i = 0; i < count; ++i)
        x[i] = static_cast<double>(i + 1);
    for (const Scale& scale : {Scale::linear(), Scale::log(), Scale::symLog()}) {
        for (const double place : {300.0, 50'000.0, 500'000.0, 990'000.0}) {
            std::vector<double> y(count, 1.0);
            y[static_cast<std::size_t>(place) - 1] = 9.0;
            for (const bool forward : {true, false}) {
                Stage stage(scale, forward ? 1.0 : 1e6, forward ? 1e6 : 1.0, Scale(), 0.0, 10.0);
                stage.draw(LineSeries(x, y));
                const Point peak = highestOf(stage.painter());
                EXPECT_NEAR(peak.x, stage.x().transform(place), 1.0) << place;
                EXPECT_NEAR(peak.y, 10.0, 0.01) << place;
            }
        }
    }
}
