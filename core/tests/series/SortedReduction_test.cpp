// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
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

namespace {

// The least and the greatest y of each column of pixels.
struct Columns {
    std::vector<double> low = std::vector<double>(102, 1e9);
    std::vector<double> high = std::vector<double>(102, -1e9);

    void add(double x, double y) {
        if (!(x >= -1.0 && x < 101.0))
            return;
        const auto column = static_cast<std::size_t>(x + 1.0);
        low[column] = std::min(low[column], y);
        high[column] = std::max(high[column], y);
    }
    double lowAround(std::size_t i) const { return std::min({low[i - 1], low[i], low[i + 1]}); }
    double highAround(std::size_t i) const { return std::max({high[i - 1], high[i], high[i + 1]}); }
};

Columns columnsDrawn(const RecordingPainter& painter) {
    Columns columns;
    for (const char* operation : {"drawPolyline", "drawLine"}) {
        for (const std::string& line : painter.linesOf(operation)) {
            std::istringstream numbers(line.substr(line.find(' ')));
            Point last{notANumber, 0.0};
            Point point;
            char comma = 0;
            while (numbers >> point.x >> comma >> point.y) {
                const double steps = std::ceil(4.0 * std::abs(point.x - last.x)) + 1.0;
                for (double i = 1.0; i < steps; ++i)
                    columns.add(last.x + (point.x - last.x) * i / steps,
                                last.y + (point.y - last.y) * i / steps);
                columns.add(point.x, point.y);
                last = point;
            }
        }
    }
    return columns;
}

} // namespace

TEST(SortedReduction, EveryColumnReachesAsFarAsItsSamplesAndNoFurther) {
    std::mt19937 dice(5);
    int told = 0;
    for (const std::size_t count : {900u, 2500u, 6000u, 20'000u, 70'000u}) {
        for (const int spacing : {0, 1, 2}) {
            std::vector<double> x(count);
            std::vector<double> y(count);
            for (std::size_t i = 0; i < count; ++i) {
                const double share = static_cast<double>(i) / static_cast<double>(count);
                // Evenly, ever denser, and in heaps far apart.
                x[i] = spacing == 0   ? share
                       : spacing == 1 ? std::sqrt(share)
                                      : std::floor(share * 40.0) / 40.0 + share / 400.0;
                x[i] = 1.0 + 999.0 * x[i];
                // Slow waves with a few spikes: were it dense, it would become a picture.
                y[i] = 0.8 * std::sin(17.0 * share) + (dice() % (count / 30) == 0 ? 0.3 : 0.0);
            }
            for (const bool forward : {true, false}) {
                for (const auto& [from, to] : {std::pair{1.0, 1000.0}, {200.0, 700.0}}) {
                    Stage stage(Scale(), forward ? from : to, forward ? to : from, Scale(), -1.2,
                                1.2);
                    LineSeries series(x, y);
                    series.setWidth(1.0);
                    stage.draw(series);
                    const Columns actual = columnsDrawn(stage.painter());
                    Columns expected;
                    for (std::size_t i = 0; i < count; ++i)
                        expected.add(stage.x().transform(x[i]), stage.y().transform(y[i]));
                    // Only what is no picture tells its points.
                    if (stage.painter().count("drawImage") > 0)
                        continue;
                    ++told;
                    for (std::size_t i = 1; i < 101; ++i) {
                        if (expected.low[i] > expected.high[i])
                            continue;
                        ASSERT_LE(actual.lowAround(i), expected.low[i] + 0.3)
                            << count << " " << spacing << " column " << i;
                        ASSERT_GE(actual.highAround(i), expected.high[i] - 0.3)
                            << count << " " << spacing << " column " << i;
                        // On the way between heaps, a line passes where no samples are.
                        if (spacing == 2)
                            continue;
                        ASSERT_GE(actual.low[i], expected.lowAround(i) - 0.3)
                            << count << " " << spacing << " column " << i;
                        ASSERT_LE(actual.high[i], expected.highAround(i) + 0.3)
                            << count << " " << spacing << " column " << i;
                    }
                }
            }
        }
    }
    EXPECT_GT(told, 10);
}
