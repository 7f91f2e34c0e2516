// SPDX-License-Identifier: MIT
#include "support/Numbers.h"
#include "support/RecordingPainter.h"

#include <zembra/series/Canvas.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <random>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

// What is left of many samples, seen as the points that a line is drawn through: a canvas of
// 200 × 100 pixels, on which values are pixels, and a calm line but for a few samples, because the
// points of a calm line fall away and those of a busy one become a picture.

using namespace zembra;
using namespace zembra::test;

namespace {

constexpr double calm = 50.0;
const Rect pathArea{0.0, 0.0, 200.0, 100.0};
const ScaleMap rightwards(Scale(), 0.0, 200.0, 0.0, 200.0);
const ScaleMap leftwards(Scale(), 200.0, 0.0, 0.0, 200.0);
const ScaleMap downwards(Scale(), 0.0, 100.0, 0.0, 100.0);

class PathPainter : public RecordingPainter {
public:
    void drawPolyline(const std::vector<Point>& points) override {
        RecordingPainter::drawPolyline(points);
        pieces.push_back(points);
    }

    std::vector<std::vector<Point>> pieces;
};

std::vector<std::vector<Point>> piecesOf(LineSeries& series, const ScaleMap& x = rightwards,
                                         const ScaleMap& y = downwards) {
    series.setWidth(1.0);
    PathPainter painter;
    FrameBuffers buffers;
    Canvas canvas(painter, pathArea, x, y, SeriesLook(), buffers);
    series.draw(canvas);
    EXPECT_EQ(painter.count("drawImage"), 0u) << "too busy to be seen as a path";
    return painter.pieces;
}

std::vector<std::vector<Point>> piecesOf(const Samples& samples, const ScaleMap& x = rightwards,
                                         const ScaleMap& y = downwards) {
    LineSeries series;
    series.setSamples(samples);
    return piecesOf(series, x, y);
}

// The points from one x to before another, by piece where there are any.
std::string told(const std::vector<std::vector<Point>>& pieces, double from, double to) {
    std::string text;
    for (const auto& piece : pieces) {
        std::string part;
        for (const Point& p : piece)
            if (p.x >= from && p.x < to)
                part += " " + std::to_string(p.x) + "," + std::to_string(p.y);
        if (!part.empty())
            text += (text.empty() ? "" : " |") + part;
    }
    return text;
}

std::string told(const std::vector<Point>& points) {
    return told(std::vector<std::vector<Point>>{points}, -1e9, 1e9);
}

std::vector<Point> busyPointsOf(const std::vector<std::vector<Point>>& pieces) {
    std::vector<Point> busy;
    for (const auto& piece : pieces)
        for (const Point& p : piece)
            if (p.y != calm)
                busy.push_back(p);
    return busy;
}

// Evenly spaced samples over the canvas, calm but for some, told by their number.
struct Line {
    Line(int perPixel, const std::map<std::size_t, double>& busy) {
        const std::size_t count = 200u * static_cast<std::size_t>(perPixel);
        for (std::size_t i = 0; i < count; ++i)
            x.push_back(static_cast<double>(i) / perPixel);
        y.assign(count, calm);
        for (const auto& [i, value] : busy)
            y[i] = value;
    }
    Samples samples() const { return {x, y}; }
    Point at(std::size_t i) const { return {x[i], y[i]}; }

    std::vector<double> x;
    std::vector<double> y;
};

// Samples whose place does not matter, which make a line long enough to be reduced.
Line parked(std::size_t count) {
    Line line(1, {});
    line.x.clear();
    for (std::size_t i = 0; i < count; ++i)
        line.x.push_back(0.5 + 10.0 * static_cast<double>(i) / static_cast<double>(count));
    line.y.assign(count, calm);
    return line;
}

void put(Line& line, double x, double y) {
    line.x.push_back(x);
    line.y.push_back(y);
}

constexpr std::size_t inStrips = 5000;
constexpr std::size_t inGroups = 64 * 300;

// Whether a straight way from the point `anchor` to the point `i` passes within a fortieth of a
// pixel of all between them, and goes as far as they do.
bool isStraightWay(const std::vector<Point>& path, std::size_t anchor, std::size_t i) {
    constexpr double tolerance = 0.025;
    const auto from = [&](std::size_t k) {
        return Point{path[k].x - path[anchor].x, path[k].y - path[anchor].y};
    };
    const Point way = from(i);
    double reach = 0.0;
    for (std::size_t k = anchor + 1; k < i; ++k) {
        const Point p = from(k);
        const double distance = std::hypot(p.x, p.y);
        const double angle = std::atan2(p.x * way.y - p.y * way.x, p.x * way.x + p.y * way.y);
        if (distance > tolerance && std::abs(angle) > std::atan(tolerance / distance))
            return false;
        // A single point is not passed again on the way back, either.
        if (i == anchor + 2 && distance - std::cos(angle) * std::hypot(way.x, way.y) > tolerance)
            return false;
        reach = std::max(reach, distance);
    }
    return std::hypot(way.x, way.y) >= reach - tolerance;
}

} // namespace

TEST(ReducedPath, HoldsTheFirstLeastGreatestAndLastSampleOfEachStripHoweverSamplesAreHeld) {
    // Eight samples in every eighth of a pixel.
    const Line line(64, {{1280, 60.0},
                         {1281, 55.0},
                         {1282, 10.0},
                         {1283, 50.0},
                         {1284, 90.0},
                         {1285, 40.0},
                         {1286, 45.0},
                         {1287, 30.0},
                         {3842, 95.0},
                         {3845, 5.0}});
    const std::vector<float> xf(line.x.begin(), line.x.end());
    const std::vector<float> yf(line.y.begin(), line.y.end());
    const double step = 1.0 / 64.0;
    Samples ring = Samples::streamed(line.x.size());
    for (int i = 0; i < 700; ++i)
        ring.append(-1.0, 0.0);
    ring.append(line.x, line.y);
    const std::string early = told({line.at(1280), line.at(1282), line.at(1284), line.at(1287)});
    const std::string late = told({line.at(3842), line.at(3845)});
    for (const Samples& samples :
         {line.samples(), Samples::owned(xf, yf), Samples::borrowed(line.x, line.y),
          Samples::borrowed(xf, yf), Samples::evenlySpaced(0.0, step, line.y),
          Samples::evenlySpaced(0.0, step, yf), Samples::borrowedEvenlySpaced(0.0, step, line.y),
          Samples::borrowedEvenlySpaced(0.0, step, yf), ring}) {
        const auto pieces = piecesOf(samples);
        EXPECT_EQ(pieces.size(), 1u);
        EXPECT_EQ(told(pieces, 20.0, 20.12), early);
        EXPECT_EQ(told(pieces, 60.01, 60.1), late);
    }
}

TEST(ReducedPath, HoldsEachSampleWhereTheyAreFew) {
    // Not more than two for each eighth of the 204 columns looked at, though they lie side by side.
    for (const std::size_t count : {2000u, 3264u, 3265u}) {
        Line line = parked(count - 17);
        std::vector<Point> all;
        for (int i = 0; i < 16; ++i) {
            put(line, 20.0 + i / 160.0, i % 2 == 0 ? 10.0 : 90.0);
            all.push_back(line.at(line.x.size() - 1));
        }
        put(line, 30.0, calm);
        EXPECT_EQ(told(piecesOf(line.samples()), 20.0, 21.0),
                  count <= 3264 ? told(all) : told({all[0], all[1], all[15]}))
            << count;
    }
}

TEST(ReducedPath, HoldsEachSampleOfAStripOfFour) {
    Line line = parked(inStrips);
    std::vector<Point> expected;
    for (int i = 0; i < 4; ++i) {
        put(line, 20.0 + i / 40.0, i % 2 == 0 ? 40.0 + i : 90.0 - i);
        expected.push_back(line.at(line.x.size() - 1));
    }
    put(line, 30.0, calm);
    EXPECT_EQ(told(piecesOf(line.samples()), 20.0, 21.0), told(expected));
}

TEST(ReducedPath, PlacesTheExtremesOfManySamplesOnTheWayThroughTheirStrip) {
    for (const bool forward : {true, false}) {
        for (const bool up : {true, false}) {
            Line line = parked(inStrips);
            for (int i = 0; i < 64; ++i)
                put(line, 20.0 + i / 512.0, i == 9 ? 5.0 : i == 50 ? 95.0 : 45.0 + i % 3);
            line.y[inStrips] = up ? 30.0 : 70.0;
            line.y.back() = up ? 70.0 : 30.0;
            const double last = line.x.back();
            put(line, 30.0, calm);
            const ScaleMap& map = forward ? rightwards : leftwards;
            const double low = forward ? 20.0 : 179.5;
            const auto at = [&](double x, double y) { return Point{map.transform(x), y}; };
            EXPECT_EQ(told(piecesOf(line.samples(), map), low, low + 0.51),
                      told({at(20.0, up ? 30.0 : 70.0), at(20.03125, up ? 5.0 : 95.0),
                            at(20.09375, up ? 95.0 : 5.0), at(last, up ? 70.0 : 30.0)}));
        }
    }
}

TEST(ReducedPath, PlacesExtremesWhereTheyAreAmongAtMostThirtyTwoSamples) {
    for (const int count : {32, 33}) {
        Line line = parked(inStrips);
        for (int i = 0; i < count; ++i)
            put(line, 20.0 + i / 320.0, i == 1 ? 10.0 : i == 30 ? 90.0 : calm);
        const Point least = line.at(inStrips + 1);
        const Point greatest = line.at(inStrips + 30);
        put(line, 30.0, calm);
        EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples()))),
                  count == 32 ? told({least, greatest})
                              : told({{20.03125, 10.0}, {20.09375, 90.0}}));
    }
}

TEST(ReducedPath, HoldsOnlyTheEndsOfAStripThatRisesOrFallsAsAWhole) {
    for (const bool up : {true, false}) {
        Line line = parked(inStrips);
        for (int i = 0; i < 64; ++i)
            put(line, 20.0 + i / 512.0, up ? 10.0 + i : 90.0 - i);
        const Point first = line.at(inStrips);
        const Point last = line.at(inStrips + 63);
        put(line, 30.0, calm);
        EXPECT_EQ(told(piecesOf(line.samples()), 20.0, 21.0), told({first, last}));
    }
}

TEST(ReducedPath, HoldsAPeakInAStripWhoseEndsAreItsLeastOrGreatestSample) {
    for (const double peak : {10.0, 90.0}) {
        for (const bool first : {true, false}) {
            Line line = parked(inStrips);
            for (int i = 0; i < 64; ++i)
                put(line, 20.0 + i / 512.0, i == 30 ? peak : calm);
            (first ? line.y[inStrips] : line.y.back()) = 100.0 - peak;
            put(line, 30.0, calm);
            EXPECT_NE(told(piecesOf(line.samples()), 20.01, 20.12).find("," + std::to_string(peak)),
                      std::string::npos);
        }
    }
}

TEST(ReducedPath, TakesTheFirstOfSeveralEqualExtremes) {
    Line line = parked(inStrips);
    for (int i = 0; i < 8; ++i)
        put(line, 20.0 + i / 64.0, calm);
    line.y[inStrips + 1] = 10.0;
    line.y[inStrips + 3] = 90.0;
    line.y[inStrips + 5] = 10.0;
    line.y[inStrips + 6] = 90.0;
    const std::vector<Point> expected = {line.at(inStrips + 1), line.at(inStrips + 3)};
    put(line, 30.0, calm);
    EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples()))), told(expected));
}

TEST(ReducedPath, TellsNeighbouringStripsApart) {
    for (const auto& x : {rightwards, ScaleMap(Scale::log(), 0.0, 200.0, 1.0, 1e8)}) {
        Line line = parked(0);
        const auto put64 = [&](double from, double to, double least, double greatest) {
            for (int i = 0; i < 64; ++i)
                put(line, x.invTransform(from + (to - from) * (i + 0.5) / 64.0),
                    i == 20   ? least
                    : i == 40 ? greatest
                              : calm);
        };
        for (std::size_t i = 0; i < inStrips; ++i)
            put(line, x.invTransform(1.0 + static_cast<double>(i) / inStrips), calm);
        put64(40.0, 40.125, 10.0, 90.0);
        put64(40.125, 40.25, 20.0, 80.0);
        put64(40.25, 40.375, 30.0, 70.0);
        put(line, x.invTransform(60.0), calm);
        EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples(), x))), told({{40.03125, 10.0},
                                                                         {40.09375, 90.0},
                                                                         {40.15625, 20.0},
                                                                         {40.21875, 80.0},
                                                                         {40.28125, 30.0},
                                                                         {40.34375, 70.0}}));
    }
}

TEST(ReducedPath, HoldsBothSidesOfThePlaceWhereARingBeginsAnew) {
    Line line = parked(inStrips);
    for (int i = 0; i < 16; ++i)
        put(line, 20.0 + i / 160.0, calm);
    line.y[inStrips + 7] = 10.0;
    line.y[inStrips + 8] = 90.0;
    line.y[inStrips + 9] = 20.0;
    line.y[inStrips + 12] = 95.0;
    put(line, 30.0, calm);
    // Of the samples, 5,008 lie at the end of the memory.
    Samples ring = Samples::streamed(line.x.size());
    for (std::size_t i = 0; i < line.x.size() - inStrips - 8; ++i)
        ring.append(-1.0, 0.0);
    ring.append(line.x, line.y);
    const auto at = [&](std::size_t i) { return line.at(inStrips + i); };
    const std::string seen = told(piecesOf(ring), 20.01, 20.09);
    EXPECT_EQ(seen, told({at(7), at(8), at(9), at(12)}));
}

TEST(ReducedPath, LeavesAGapWhereAStripBeginsOrEndsWithoutASample) {
    // Some samples are looked at, many are looked up.
    for (const int count : {8, 64}) {
        for (const bool atBegin : {true, false}) {
            Line line = parked(inStrips);
            for (int i = 0; i < count; ++i)
                put(line, 20.0 + i / 8.0 / count, calm);
            line.y[inStrips + 2] = 10.0;
            line.y[inStrips + 5] = 90.0;
            (atBegin ? line.y[inStrips] : line.y.back()) = notANumber;
            put(line, 30.0, 20.0);
            put(line, 40.0, 20.0);
            const auto pieces = piecesOf(line.samples());
            ASSERT_EQ(pieces.size(), 2u) << count << atBegin;
            const auto& busy = pieces[atBegin ? 1 : 0];
            const auto& other = pieces[atBegin ? 0 : 1];
            EXPECT_NE(told({busy}, 20.0, 20.125).find(",10.0"), std::string::npos);
            EXPECT_NE(told({busy}, 20.0, 20.125).find(",90.0"), std::string::npos);
            EXPECT_EQ(told({other}, 20.0, 20.125), "");
        }
    }
}

TEST(ReducedPath, BridgesWhatIsMissingWithinAStripButNotAWholeStrip) {
    for (const int count : {8, 64}) {
        Line line = parked(inStrips);
        for (int i = 0; i < count; ++i)
            put(line, 20.0 + i / 8.0 / count, i == 0 || i == count - 1 ? calm : notANumber);
        put(line, 30.0, calm);
        EXPECT_EQ(piecesOf(line.samples()).size(), 1u);
        line.y[inStrips] = notANumber;
        line.y[line.y.size() - 2] = notANumber;
        put(line, 40.0, calm);
        EXPECT_EQ(piecesOf(line.samples()).size(), 2u);
    }
}

TEST(ReducedPath, ComesFromTheLastSampleBeforeTheViewAndGoesToTheFirstBehindIt) {
    for (const std::size_t count : {std::size_t{100}, inStrips, inGroups}) {
        for (const bool forward : {true, false}) {
            Line line(1, {});
            line.x = {-10.0};
            line.y = {0.0};
            const Line heap = parked(count);
            line.x.insert(line.x.end(), heap.x.begin(), heap.x.end());
            line.y.insert(line.y.end(), heap.y.begin(), heap.y.end());
            put(line, 190.0, calm);
            put(line, 210.0, 0.0);
            const auto pieces = piecesOf(line.samples(), forward ? rightwards : leftwards);
            ASSERT_EQ(pieces.size(), 1u);
            // The line is followed for a pixel more than the canvas.
            EXPECT_NEAR(pieces[0].front().x, forward ? -1.0 : 201.0, 1e-9) << count;
            EXPECT_NEAR(pieces[0].front().y, calm * 9.0 / 10.5, 1e-9) << count;
            EXPECT_NEAR(pieces[0].back().x, forward ? 201.0 : -1.0, 1e-9) << count;
            EXPECT_NEAR(pieces[0].back().y, calm * 9.0 / 20.0, 1e-9) << count;
        }
    }
}

TEST(ReducedPath, HoldsSamplesThatStandAboveEachOther) {
    const Samples samples({0.0, 20.0, 20.0, 20.0, 200.0}, {calm, 10.0, 90.0, 30.0, calm});
    EXPECT_EQ(told(busyPointsOf(piecesOf(samples))),
              told({{20.0, 10.0}, {20.0, 90.0}, {20.0, 30.0}}));
}

TEST(ReducedPath, LeavesOutOnlyWhatLiesWithinAFortiethOfAPixelOfIt) {
    struct Row {
        const char* what;
        std::vector<double> x, y;
        std::vector<Point> expected;
    };
    for (const Row& row :
         {Row{"goes on", {10, 20, 30}, {50, 50.01, 50}, {{10, 50}, {30, 50}}},
          {"turns off", {10, 20, 30}, {50, 50.06, 50}, {{10, 50}, {20, 50.06}, {30, 50}}},
          {"hardly turns back", {20, 20, 20, 20}, {10, 30, 29.99, 60}, {{20, 10}, {20, 60}}},
          {"turns back", {20, 20, 20}, {10, 30, 29.9}, {{20, 10}, {20, 30}, {20, 29.9}}},
          {"turns back a long way on",
           {20, 20, 20},
           {10, 70, 69.9},
           {{20, 10}, {20, 70}, {20, 69.9}}},
          {"leaves its first point by more",
           {10, 20, 30, 40},
           {50, 50, 50.03, 50.078},
           {{10, 50}, {30, 50.03}, {40, 50.078}}}})
        EXPECT_EQ(told(piecesOf(Samples(row.x, row.y)), 0.0, 100.0), told(row.expected))
            << row.what;
}

TEST(ReducedPath, GoesStraightOnForAsLongAsThatPassesCloseToEverySample) {
    std::mt19937 dice(3);
    const auto random = [&dice] { return static_cast<double>(dice()) / 4294967296.0; };
    std::size_t samples = 0;
    std::size_t kept = 0;
    for (int round = 0; round < 400; ++round) {
        // From far less than a pixel to several at each step, bending, trembling and turning back.
        const double step = std::pow(10.0, 1.0 - 0.5 * (round % 7));
        const double bend = std::pow(10.0, -0.5 * (round % 5));
        std::vector<Point> path = {{100.0, 50.0}};
        double heading = 6.3 * random();
        for (int i = 0; i < 60; ++i) {
            heading += bend * (random() - 0.5) + (random() < 0.1 ? 3.14 : 0.0);
            const double length = step * random();
            const Point& last = path.back();
            path.push_back({std::clamp(last.x + length * std::cos(heading), 1.0, 199.0),
                            std::clamp(last.y + length * std::sin(heading), 1.0, 99.0)});
        }
        std::vector<Point> expected = {path.front()};
        std::size_t anchor = 0;
        for (std::size_t i = 2; i < path.size(); ++i) {
            if (isStraightWay(path, anchor, i))
                continue;
            anchor = i - 1;
            expected.push_back(path[anchor]);
        }
        expected.push_back(path.back());
        std::vector<double> x;
        std::vector<double> y;
        for (const Point& p : path) {
            x.push_back(p.x);
            y.push_back(p.y);
        }
        const auto pieces = piecesOf(Samples(x, y));
        ASSERT_EQ(pieces.size(), 1u) << round;
        ASSERT_EQ(told(pieces[0]), told(expected)) << round;
        samples += path.size();
        kept += expected.size();
    }
    EXPECT_GT(kept, samples / 10);
    EXPECT_LT(kept, samples / 2);
}

TEST(ReducedPath, TakesNoStepOutOfAGap) {
    LineSeries series({10.0, 20.0, 30.0, 40.0, 50.0}, {10.0, 20.0, notANumber, 40.0, 50.0});
    series.setSteps(LineSteps::Before);
    EXPECT_EQ(told(piecesOf(series), 0.0, 100.0),
              told({{10.0, 10.0}, {10.0, 20.0}, {20.0, 20.0}}) + " |" +
                  told({{40.0, 40.0}, {40.0, 50.0}, {50.0, 50.0}}));
}

TEST(ReducedPath, DependsOnTheSamplesInViewAlone) {
    for (const std::size_t count : {std::size_t{2000}, inStrips, inGroups}) {
        const auto seen = [count](std::size_t before) {
            Line line = parked(0);
            for (std::size_t i = 0; i < before; ++i)
                put(line, -1000.0 + 900.0 * static_cast<double>(i) / static_cast<double>(before),
                    calm);
            const Line heap = parked(count);
            line.x.insert(line.x.end(), heap.x.begin(), heap.x.end());
            line.y.insert(line.y.end(), heap.y.begin(), heap.y.end());
            for (int i = 0; i < 256; ++i)
                put(line, 20.0 + i / 1024.0,
                    i % 16 == 3   ? 10.0 + i / 16
                    : i % 16 == 9 ? 90.0
                                  : calm);
            put(line, 30.0, calm);
            return told(busyPointsOf(piecesOf(line.samples())));
        };
        const std::string expected = seen(0);
        EXPECT_NE(expected, "");
        EXPECT_EQ(seen(std::size_t{1} << 20), expected) << count;
    }
}

TEST(ReducedPath, PassesOverTheViewWhereNoSampleLiesInIt) {
    const auto pieces = piecesOf(Samples({-100.0, -50.0, 250.0, 300.0}, {0.0, 20.0, 80.0, 0.0}));
    ASSERT_EQ(pieces.size(), 1u);
    EXPECT_EQ(told(pieces[0]), told({{-1.0, 29.8}, {201.0, 70.2}}));
}

TEST(ReducedPath, CountsOnlyPositiveSamplesOnLogarithmicScales) {
    const ScaleMap log(Scale::log(), 0.0, 100.0, 1.0, 1e10);
    for (const auto& [count, least] : {std::pair{8, -7.0}, {8, 0.0}, {64, -7.0}, {64, 0.0}}) {
        Line line = parked(inStrips);
        line.y.assign(inStrips, 1e5);
        for (int i = 0; i < count; ++i)
            put(line, 20.0 + i / 8.0 / count, i == 2 ? least : i == 3 ? 0.0 : 1e5);
        line.y[inStrips + 4] = 1e9;
        line.y[inStrips + 6] = 1e1;
        put(line, 30.0, 1e5);
        auto pieces = piecesOf(line.samples(), rightwards, log);
        ASSERT_EQ(pieces.size(), 1u);
        const std::string seen = told(pieces, 20.0, 20.125);
        EXPECT_NE(seen.find(",10.0"), std::string::npos) << seen;
        EXPECT_NE(seen.find(",90.0"), std::string::npos) << seen;
        line.y[inStrips] = 0.0;
        EXPECT_EQ(piecesOf(line.samples(), rightwards, log).size(), 2u);
    }
}

TEST(ReducedPath, ShowsAllThatAScaleOfTheHostCanPlaceAmongWhatItCannot) {
    const auto same = [](double v) { return v; };
    for (const auto& [domain, shown, beyond] : {std::tuple{Interval{0.0, 100.0}, 0.0, -50.0},
                                                {Interval{-3.0, 100.0}, -0.5, -50.0},
                                                {Interval{0.5, 100.0}, 0.6, 300.0}}) {
        const ScaleMap y(Scale::custom(same, same, domain), 1.0, 100.0, 1.0, 100.0);
        Line line = parked(inStrips);
        line.y[0] = beyond;
        line.y[10] = 70.0;
        line.y[1000] = beyond;
        for (int i = 0; i < 8; ++i)
            put(line, 20.0 + i / 64.0, i == 4 ? shown : calm);
        const Point least = line.at(inStrips + 4);
        put(line, 30.0, calm);
        const auto pieces = piecesOf(line.samples(), rightwards, y);
        ASSERT_EQ(pieces.size(), 2u) << shown;
        EXPECT_EQ(told(busyPointsOf(pieces)), told({line.at(10), least}));
    }
}

TEST(ReducedPath, HoldsTheExtremesOfGroupsThatAreNarrow) {
    // Groups of 64 samples in a quarter of a pixel; the calm ones around them begin and end.
    const Line peaks(256, {{5130, 10.0}, {5180, 90.0}, {5184, 60.0}, {5200, 20.0}, {5230, 95.0}});
    // The second group falls, because it begins higher than it ends.
    EXPECT_EQ(told(piecesOf(peaks.samples()), 20.0, 20.5),
              told({{20.0625, 10.0}, {20.1875, 90.0}, {20.3125, 95.0}, {20.4375, 20.0}}));
    Line slope(256, {});
    for (std::size_t i = 0; i < 64; ++i)
        slope.y[5120 + i] = 10.0 + static_cast<double>(i);
    EXPECT_EQ(told(piecesOf(slope.samples()), 20.0, 20.25), told({slope.at(5120), slope.at(5183)}));
}

TEST(ReducedPath, TakesGroupsWhereAColumnHoldsSixtyFourSamples) {
    // Parts of eight samples, whatever eighth of a pixel these lie in.
    const Line line(66, {{1921, 10.0}, {1926, 20.0}});
    EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples()))), told({line.at(1921)}));
}

TEST(ReducedPath, MakesEightToSixteenGroupsOfManySamplesInAColumn) {
    // 1,029 and 2,007 samples in a column of the view: groups of 128.
    for (const int perPixel : {1050, 2048}) {
        const std::size_t first = 128 * 200;
        const Line line(
            perPixel,
            {{first + 20, 10.0}, {first + 100, 90.0}, {first + 140, 20.0}, {first + 250, 80.0}});
        const double x = line.x[first];
        const double quarter = 32.0 / perPixel;
        EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples()))), told({{x + quarter, 10.0},
                                                                      {x + 3.0 * quarter, 90.0},
                                                                      {x + 5.0 * quarter, 20.0},
                                                                      {x + 7.0 * quarter, 80.0}}));
    }
}

TEST(ReducedPath, SplitsGroupsThatAreWideIntoPartsAndHoldsTheirExtremes) {
    // A group of 64 samples is 0.64 pixels wide and has six parts: of ten samples, and the last of
    // what is left.
    const Line line(100, {{2049, 10.0},
                          {2056, 90.0},
                          {2059, 12.0},
                          {2066, 88.0},
                          {2099, 14.0},
                          {2105, 20.0},
                          {2107, 80.0},
                          {2108, 86.0},
                          {2109, 30.0},
                          {2110, 70.0}});
    EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples()))),
              told({line.at(2049), line.at(2056), line.at(2059), line.at(2066), line.at(2099),
                    line.at(2108)}));
}

TEST(ReducedPath, LeavesAGapWhereAPartOfAGroupBeginsOrEndsWithoutASample) {
    struct Row {
        int perPixel;
        std::size_t first, last;
    };
    // A part of ten samples, and a whole group.
    for (const Row& row : {Row{100, 2048, 2057}, Row{256, 5120, 5183}}) {
        for (const std::size_t missing : {row.first, row.last, row.first + 3}) {
            const Line line(row.perPixel,
                            {{row.first + 1, 10.0}, {row.first + 8, 90.0}, {missing, notANumber}});
            const auto pieces = piecesOf(line.samples());
            EXPECT_EQ(pieces.size(), missing == row.first + 3 ? 1u : 2u) << missing;
            EXPECT_EQ(busyPointsOf(pieces).size(), 2u) << missing;
        }
    }
}

TEST(ReducedPath, HoldsEachSampleOfAGroupThatSuddenlyLiesFarApart) {
    for (const double step : {0.02, 0.25, 0.5}) {
        // Of 64 samples, the last of which is followed by a long way.
        Line line = parked(inGroups);
        std::vector<Point> expected;
        for (int i = 0; i < 64; ++i) {
            put(line, 20.0 + i * step, i % 2 == 0 ? 48.0 : 52.0);
            expected.push_back(line.at(line.x.size() - 1));
        }
        for (int i = 0; i < 64; ++i)
            put(line, 100.0 + i / 640.0, calm);
        EXPECT_EQ(told(piecesOf(line.samples()), 20.0, 20.0 + 64 * step), told(expected)) << step;
    }
}

TEST(ReducedPath, HoldsEachSampleOfAPartBeforeALeapWithinItsGroup) {
    // Eight parts of eight samples; behind the fourth there is a leap of more than half a pixel.
    Line line = parked(inGroups);
    std::vector<Point> expected;
    for (int i = 0; i < 64; ++i)
        put(line, (i < 32 ? 20.0 : 20.7) + i / 320.0, calm);
    for (std::size_t i = 24; i < 32; ++i) {
        line.y[inGroups + i] = i % 2 == 0 ? 45.0 : 55.0;
        expected.push_back(line.at(inGroups + i));
    }
    for (int i = 0; i < 64; ++i)
        put(line, 20.95 + i / 320.0, calm);
    EXPECT_EQ(told(busyPointsOf(piecesOf(line.samples()))), told(expected));
}

TEST(ReducedPath, HalvesLargeGroupsWhoseSamplesSuddenlyLieFarApart) {
    Line line = parked(128 * 2000);
    std::vector<Point> expected;
    for (int i = 0; i < 64; ++i)
        put(line, 20.0 + i / 640.0, i == 10 ? 20.0 : i == 50 ? 80.0 : calm);
    for (int i = 0; i < 64; ++i) {
        put(line, 20.1 + i * 0.5, i % 2 == 0 ? 48.0 : 52.0);
        expected.push_back(line.at(line.x.size() - 1));
    }
    put(line, 100.0, calm);
    const auto pieces = piecesOf(line.samples());
    EXPECT_EQ(told(pieces, 20.0, 20.0999), told({{20.025, 20.0}, {20.075, 80.0}}));
    EXPECT_EQ(told(pieces, 20.1, 52.0), told(expected));
}

TEST(ReducedPath, LooksAtNoSampleBehindTheLast) {
    // The last group ends at its last sample; behind it lies what is not part of the samples.
    Line line = parked(inGroups);
    for (int i = 0; i < 64; ++i)
        put(line, 20.0 + i / 315.0, i == 10 ? 20.0 : i == 50 ? 80.0 : calm);
    const std::size_t count = line.x.size();
    for (int i = 0; i < 100; ++i)
        put(line, 20.3 + i, 0.0);
    const auto pieces =
        piecesOf(Samples::borrowed(std::span(line.x).first(count), std::span(line.y).first(count)));
    EXPECT_EQ(told(pieces, 20.0, 200.0), told({{20.05, 20.0}, {20.15, 80.0}}));
}

TEST(ReducedPath, SplitsTheLastGroupAsIfNothingCameBehindIt) {
    // Its last part is narrow, though the next number in memory is far away.
    Line line = parked(inGroups);
    for (int i = 0; i < 64; ++i)
        put(line, 20.0 + i / 100.0, calm);
    const std::size_t count = line.x.size();
    for (const int i : {2, 4, 6, 8})
        line.y[count - 10 + static_cast<std::size_t>(i)] = i % 4 == 0 ? 10.0 + i : 90.0 - i;
    const std::vector<Point> expected = {line.at(count - 8), line.at(count - 6)};
    put(line, 60.0, 0.0);
    EXPECT_EQ(told(busyPointsOf(piecesOf(Samples::borrowed(std::span(line.x).first(count),
                                                           std::span(line.y).first(count))))),
              told(expected));
}
