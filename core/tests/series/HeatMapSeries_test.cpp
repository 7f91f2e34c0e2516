// SPDX-License-Identifier: MIT
#include <zembra/series/HeatMapSeries.h>

#include "support/HostileNumbers.h"
#include "support/PicturePainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

struct View {
    ScaleMap x{Scale::linear(), 0.0, 100.0, 0.0, 10.0};
    ScaleMap y{Scale::linear(), 100.0, 0.0, 0.0, 10.0};
    PicturePainter painter;
    FrameBuffers buffers;

    void draw(const Series& series) {
        painter.clear();
        buffers.clear();
        Canvas canvas(painter, {0.0, 0.0, 100.0, 100.0}, x, y, {}, buffers);
        series.draw(canvas);
    }
};

// Values 0, 1, 2, 3: below 0 and 1, above 2 and 3, over 0..10 in both directions.
Grid four() {
    return Grid({0.0, 1.0, 2.0, 3.0}, 2, {0.0, 10.0}, {0.0, 10.0});
}

Color viridis(double share) {
    return ColorMap::viridis().at(share);
}

} // namespace

TEST(HeatMapSeries, IsOnePictureOfTheCanvas) {
    Stage stage;
    EXPECT_EQ(stage.draw(HeatMapSeries(four())), "drawImage 100x100 50,50\n");
}

TEST(HeatMapSeries, RowZeroIsAtTheFirstYAndColumnZeroAtTheFirstX) {
    View view;
    view.draw(HeatMapSeries(four()));
    EXPECT_EQ(view.painter.at(0, 99), viridis(0.0));
    EXPECT_EQ(view.painter.at(49, 50), viridis(0.0));
    EXPECT_EQ(view.painter.at(50, 50), viridis(1.0 / 3.0));
    EXPECT_EQ(view.painter.at(49, 49), viridis(2.0 / 3.0));
    EXPECT_EQ(view.painter.at(99, 0), viridis(1.0));
}

TEST(HeatMapSeries, TurnsWithItsSpansAndWithTheAxes) {
    View view;
    view.draw(HeatMapSeries(Grid({0.0, 1.0, 2.0, 3.0}, 2, {10.0, 0.0}, {10.0, 0.0})));
    EXPECT_EQ(view.painter.at(0, 99), viridis(1.0));
    EXPECT_EQ(view.painter.at(99, 0), viridis(0.0));
    view.x = ScaleMap(Scale::linear(), 0.0, 100.0, 10.0, 0.0);
    view.draw(HeatMapSeries(four()));
    EXPECT_EQ(view.painter.at(99, 99), viridis(0.0));
    EXPECT_EQ(view.painter.at(0, 99), viridis(1.0 / 3.0));
}

TEST(HeatMapSeries, PixelsBesideTheGridAreTransparent) {
    View view;
    view.draw(HeatMapSeries(Grid({1.0, 2.0}, 2, {2.0, 4.0}, {5.0, 6.0})));
    EXPECT_EQ(view.painter.at(19, 45), Color(0, 0, 0, 0));
    EXPECT_EQ(view.painter.at(20, 45), viridis(0.0));
    EXPECT_EQ(view.painter.at(39, 45), viridis(1.0));
    EXPECT_EQ(view.painter.at(40, 45), Color(0, 0, 0, 0));
    EXPECT_EQ(view.painter.at(30, 39), Color(0, 0, 0, 0));
    EXPECT_EQ(view.painter.at(30, 50), Color(0, 0, 0, 0));
}

TEST(HeatMapSeries, AnUnchangedViewHandsOverTheSameBufferAndAChangedOneAnother) {
    View view;
    HeatMapSeries series(four());
    view.draw(series);
    const auto* first = view.painter.address;
    view.draw(series);
    EXPECT_EQ(view.painter.address, first);

    view.x = ScaleMap(Scale::linear(), 0.0, 100.0, 0.0, 9.0);
    view.draw(series);
    const auto* panned = view.painter.address;
    EXPECT_NE(panned, first);

    ColorScale colors(ColorMap::magma());
    series.setColorScale(colors);
    view.draw(series);
    EXPECT_NE(view.painter.address, panned);
    EXPECT_EQ(view.painter.at(0, 99), ColorMap::magma().at(0.0));
    const auto* recolored = view.painter.address;

    series.setGrid(Grid({5.0, 6.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
    view.draw(series);
    EXPECT_NE(view.painter.address, recolored);
}

TEST(HeatMapSeries, TheBufferOutlivesTheSeriesWithinTheFrame) {
    View view;
    {
        const HeatMapSeries series(four());
        view.draw(series);
    }
    ASSERT_EQ(view.buffers.size(), 1u);
    EXPECT_EQ(view.buffers[0]->data(), view.painter.address);
}

TEST(HeatMapSeries, MissingValuesTakeTheirColor) {
    ColorScale colors;
    colors.setNanColor({9, 8, 7});
    HeatMapSeries series(Grid({0.0, notANumber, 1.0, 2.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
    View view;
    view.draw(series);
    EXPECT_EQ(view.painter.at(75, 75), Color(0, 0, 0, 0));
    series.setColorScale(colors);
    view.draw(series);
    EXPECT_EQ(view.painter.at(75, 75), Color(9, 8, 7));
    EXPECT_EQ(view.painter.at(25, 75), viridis(0.0));
}

TEST(HeatMapSeries, PixelsOverManyCellsTakeTheirMeanWithoutTheMissingOnes) {
    // A thousand columns of 0, 1, 2, 3, missing …: each pixel covers ten of them.
    std::vector<double> values(1000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i % 5 == 4 ? notANumber : static_cast<double>(i % 5);
    HeatMapSeries series(Grid(values, 1000, {0.0, 10.0}, {0.0, 10.0}));
    View view;
    view.draw(series);
    for (int x = 0; x < 100; ++x) {
        EXPECT_NE(view.painter.at(x, 50), Color(0, 0, 0, 0)) << x;
        EXPECT_NE(view.painter.at(x, 50), viridis(0.0)) << x;
        EXPECT_NE(view.painter.at(x, 50), viridis(1.0)) << x;
    }
}

TEST(HeatMapSeries, NearestSamplingShowsOnlyValuesThatExist) {
    std::vector<double> values(1000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i % 2 == 0 ? -3.0 : 3.0;
    HeatMapSeries series(Grid(values, 1000, {0.0, 10.0}, {0.0, 10.0}));
    View view;
    view.draw(series);
    EXPECT_NE(view.painter.at(50, 50), viridis(0.0));
    EXPECT_NE(view.painter.at(50, 50), viridis(1.0));
    series.setSampling(HeatMapSampling::Nearest);
    view.draw(series);
    for (int x = 0; x < 100; ++x)
        EXPECT_TRUE(view.painter.at(x, 50) == viridis(0.0) ||
                    view.painter.at(x, 50) == viridis(1.0))
            << x;
}

TEST(HeatMapSeries, FollowsALogarithmicAxis) {
    View view;
    view.x = ScaleMap(Scale::log(), 0.0, 100.0, 1.0, 100.0);
    // Cells of 50 from -50 to 100: the one below zero has no place.
    view.draw(HeatMapSeries(Grid({7.0, 0.0, 1.0}, 3, {-50.0, 100.0}, {0.0, 10.0})));
    const int fifty = static_cast<int>(100.0 * std::log10(50.0) / 2.0);
    EXPECT_EQ(view.painter.at(0, 50), viridis(0.0));
    EXPECT_EQ(view.painter.at(fifty - 1, 50), viridis(0.0));
    EXPECT_EQ(view.painter.at(fifty + 1, 50), viridis(1.0 / 7.0));
}

TEST(HeatMapSeries, BoundsAreTheSpansWithinTheDomain) {
    const HeatMapSeries series(Grid({1.0, 2.0, 3.0}, 3, {30.0, -30.0}, {1.0, 2.0}));
    const Bounds linear = series.bounds(Scale::linear(), Scale::linear());
    EXPECT_EQ(linear.x, (Interval{-30.0, 30.0}));
    EXPECT_EQ(linear.y, (Interval{1.0, 2.0}));
    EXPECT_EQ(series.bounds(Scale::log(), Scale::log()).x, (Interval{20.0, 30.0}));
}

TEST(HeatMapSeries, EmptyGridsDrawNothing) {
    const std::array grids = {
        Grid(),
        Grid({}, 3, {0.0, 1.0}, {0.0, 1.0}),
        Grid({1.0, 2.0}, 0, {0.0, 1.0}, {0.0, 1.0}),
        Grid({1.0, 2.0}, 3, {0.0, 1.0}, {0.0, 1.0}),
        Grid({1.0}, 1, {1.0, 1.0}, {0.0, 1.0}),
        Grid({1.0}, 1, {0.0, 1.0}, {notANumber, 1.0}),
    };
    for (const Grid& grid : grids) {
        const HeatMapSeries series(grid);
        Stage stage;
        EXPECT_EQ(stage.draw(series), "");
        EXPECT_TRUE(series.bounds(Scale::linear(), Scale::linear()).x.isEmpty());
        EXPECT_FALSE(stage.nearest(series, {50.0, 50.0}));
    }
}

TEST(HeatMapSeries, OneCellIsAnOrdinaryGrid) {
    View view;
    const HeatMapSeries series(Grid({4.0}, 1, {0.0, 10.0}, {0.0, 10.0}));
    view.draw(series);
    EXPECT_EQ(view.painter.at(0, 0), view.painter.at(99, 99));
    EXPECT_EQ(view.painter.at(0, 0).alpha(), 255);
}

TEST(HeatMapSeries, NearestIsTheCellBelowThePixel) {
    const HeatMapSeries series(Grid({0.0, 1.0, notANumber, 3.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
    const Stage stage;
    const auto found = stage.nearest(series, {80.0, 75.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 1u);
    EXPECT_DOUBLE_EQ(found->x, 7.5);
    EXPECT_DOUBLE_EQ(found->y, 2.5);
    EXPECT_NEAR(found->distance, 5.0, 1e-9);
    EXPECT_FALSE(stage.nearest(series, {20.0, 20.0})) << "a missing value";
    EXPECT_FALSE(stage.nearest(series, {120.0, 20.0})) << "beside the grid";
}

TEST(HeatMapSeries, TheLegendKeyShowsTheMap) {
    Stage stage;
    const std::string key = stage.drawKey(HeatMapSeries(four()));
    EXPECT_NE(key.find("fillRect 0,0 4x10 #440154"), std::string::npos) << key;
    EXPECT_NE(key.find("fillRect 16,0 4x10 #fde725"), std::string::npos) << key;
}

TEST(HeatMapSeries, TellsItsColorScaleWithTheRangeOfItsValues) {
    HeatMapSeries series(four());
    ASSERT_NE(series.colorScale(), nullptr);
    EXPECT_EQ(series.colorScale()->range(), (Interval{0.0, 3.0}));
    series.setColorScale(ColorScale(ColorMap::magma(), Scale::log()));
    EXPECT_EQ(series.colorScale()->range(), (Interval{1.0, 3.0}));
    const auto revision = series.revision();
    series.setGrid(Grid({4.0, 5.0}, 1, {0.0, 1.0}, {0.0, 1.0}));
    EXPECT_EQ(series.colorScale()->range(), (Interval{4.0, 5.0}));
    EXPECT_NE(series.revision(), revision);
}

TEST(HeatMapSeries, BorrowedValuesAreReadWhereTheyAre) {
    const std::vector<double> values = {0.0, 1.0, 2.0, 3.0};
    View borrowed;
    borrowed.draw(HeatMapSeries(Grid::borrowed(values, 2, {0.0, 10.0}, {0.0, 10.0})));
    View owned;
    owned.draw(HeatMapSeries(four()));
    EXPECT_EQ(borrowed.painter.bytes, owned.painter.bytes);
}

TEST(HeatMapSeries, HostileNumbersAreHarmless) {
    for (const HostileRow& spans : hostileRows()) {
        const auto& s = spans.values;
        const GridSpan span = s.size() < 2 ? GridSpan{} : GridSpan{s[0], s[1]};
        for (const HostileRow& row : hostileRows())
            expectHarmless(HeatMapSeries(Grid(row.values, 2, span, {0.0, 10.0})),
                           spans.name + " / " + row.name);
    }
}

TEST(HeatMapSeries, ShowsTheSameAfterPansByWholePixelsAsDrawnAnew) {
    std::vector<double> values(std::size_t{300} * 300);
    std::iota(values.begin(), values.end(), 0.0);
    for (double& v : values)
        v = std::fmod(v * 7.3, 11.0);
    values[12345] = std::nan("");
    const Grid grid(values, 300, {0.0, 10.0}, {0.0, 10.0});
    HeatMapSeries panned(grid);
    // No edge of a cell on the edge of a pixel, where it may fall to either side.
    double x = 0.0137;
    double y = 0.0171;
    View view;
    view.x = ScaleMap(Scale::linear(), 0.0, 100.0, x, x + 10.0);
    view.y = ScaleMap(Scale::linear(), 100.0, 0.0, y, y + 10.0);
    view.draw(panned);
    const unsigned char* address = view.painter.address;
    auto before = view.painter.bytes;
    const struct {
        double right;
        double down;
    } steps[] = {{3.0, 0.0}, {0.0, -5.0}, {-17.0, 4.0}, {99.0, 1.0}, {0.5, 0.0}, {250.0, 0.0}};
    for (const auto& step : steps) {
        x -= step.right * 0.1;
        y += step.down * 0.1;
        view.x = ScaleMap(Scale::linear(), 0.0, 100.0, x, x + 10.0);
        view.y = ScaleMap(Scale::linear(), 100.0, 0.0, y, y + 10.0);
        view.draw(panned);
        const auto bytes = view.painter.bytes;
        EXPECT_EQ(view.painter.address == address, bytes == before);
        address = view.painter.address;
        before = bytes;
        const HeatMapSeries fresh(grid);
        view.draw(fresh);
        int different = 0;
        for (std::size_t i = 0; i < bytes.size(); i += 4)
            different += std::memcmp(bytes.data() + i, view.painter.bytes.data() + i, 4) != 0;
        EXPECT_EQ(different, 0) << step.right << ' ' << step.down;
    }
}

TEST(HeatMapSeries, PansByPartsOfPixelsMovePixelsAndKeepTheirColors) {
    // More than three cells to a pixel, and no whole number of them.
    std::vector<double> values(std::size_t{337} * 337);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::fmod(static_cast<double>(i) * 7.3, 11.0);
    HeatMapSeries series(Grid::borrowed(values, 337, {0.0, 10.0}, {0.0, 10.0}));
    View view;
    view.draw(series);
    const auto old = view.painter;
    // Whatever is looked at again shows.
    std::fill(values.begin(), values.end(), notANumber);
    for (int step = 1; step < 70; ++step) {
        const double pixels = 0.3 * step;
        view.x = ScaleMap(Scale::linear(), 0.0, 100.0, -0.1 * pixels, 10.0 - 0.1 * pixels);
        view.y = ScaleMap(Scale::linear(), 100.0, 0.0, 0.1 * pixels, 10.0 + 0.1 * pixels);
        view.draw(series);
        const int moved = static_cast<int>(std::lround(pixels));
        if (std::abs(pixels - moved) > 0.49)
            continue;
        int different = 0;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                const bool seen = x >= moved && y >= moved;
                const Color expected = seen ? old.at(x - moved, y - moved) : Color(0, 0, 0, 0);
                different += view.painter.at(x, y) != expected;
            }
        ASSERT_EQ(different, 0) << pixels;
    }
}

TEST(HeatMapSeries, CellsLargerThanPixelsBeginAndEndAtTheNearestPixel) {
    const HeatMapSeries series(four());
    View view;
    for (const double pixels : {0.2, 0.4, 0.6, 0.8, 1.2}) {
        view.x = ScaleMap(Scale::linear(), 0.0, 100.0, -0.1 * pixels, 10.0 - 0.1 * pixels);
        view.draw(series);
        const int edge = 50 + static_cast<int>(std::lround(pixels));
        EXPECT_EQ(view.painter.at(edge - 1, 90), viridis(0.0)) << pixels;
        EXPECT_EQ(view.painter.at(edge, 90), viridis(1.0 / 3.0)) << pixels;
    }
}

TEST(HeatMapSeries, SeveralRowsOfPixelsOverTheSameCellsAreEqual) {
    std::vector<double> values(std::size_t{300} * 7);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::fmod(static_cast<double>(i) * 7.3, 11.0);
    values[450] = notANumber;
    const HeatMapSeries series(Grid(values, 300, {-1.0, 11.0}, {1.0, 8.0}));
    View view;
    view.draw(series);
    for (int y = 20; y < 90; ++y)
        for (int x = 0; x < 100; ++x)
            ASSERT_EQ(view.painter.at(x, y), view.painter.at(x, y / 10 * 10)) << x << ' ' << y;
    EXPECT_NE(view.painter.at(0, 20), view.painter.at(0, 30));
    EXPECT_EQ(view.painter.at(0, 19), Color(0, 0, 0, 0));
    EXPECT_EQ(view.painter.at(0, 90), Color(0, 0, 0, 0));
}

TEST(HeatMapSeries, NothingOfFormerPicturesShowsWhereTheirMemoryIsUsedAgain) {
    const HeatMapSeries series(four());
    View view;
    // The memory of one frame serves the one after the next.
    for (const double shift : {0.0, 0.011, 4.003, 4.014, 0.0})
        for (const bool across : {true, false}) {
            view.x = ScaleMap(Scale::linear(), 0.0, 100.0, across ? shift : 0.0, 10.0 + shift);
            view.y = ScaleMap(Scale::linear(), 100.0, 0.0, across ? 0.0 : -shift, 10.0);
            view.draw(series);
            const auto bytes = view.painter.bytes;
            View fresh;
            fresh.x = view.x;
            fresh.y = view.y;
            fresh.draw(HeatMapSeries(four()));
            EXPECT_EQ(bytes, fresh.painter.bytes) << shift << ' ' << across;
        }
}

TEST(HeatMapSeries, EveryPixelShowsTheMeanOfCellsThatItCovers) {
    // From less than a cell to hundreds of them for a pixel, in either direction and beside the
    // grid: a ramp shows which cells were looked at.
    for (const std::size_t columns : {3u, 90u, 250u, 333u, 520u, 1000u, 30000u})
        for (const bool forward : {true, false}) {
            std::vector<double> values(columns * 3);
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = (static_cast<double>(i % columns) + 0.5) / static_cast<double>(columns);
            ColorScale colors(ColorMap({Color(0, 0, 0), Color(255, 255, 255)}));
            colors.setRange(0.0, 1.0);
            const GridSpan span = forward ? GridSpan{0.5, 9.5} : GridSpan{9.5, 0.5};
            HeatMapSeries series(Grid(values, columns, span, {0.0, 10.0}));
            series.setColorScale(colors);
            View view;
            view.draw(series);
            const double cell = 255.0 / static_cast<double>(columns);
            for (int x = 5; x < 95; ++x) {
                const double share = (x + 0.5 - 5.0) / 90.0;
                EXPECT_NEAR(view.painter.at(x, 50).red(), 255.0 * (forward ? share : 1.0 - share),
                            std::max(0.5 * cell, 255.0 / 90.0 / 2.0) + 1.0)
                    << columns << ' ' << forward << ' ' << x;
            }
            EXPECT_EQ(view.painter.at(4, 50), Color(0, 0, 0, 0));
            EXPECT_EQ(view.painter.at(95, 50), Color(0, 0, 0, 0));
        }
}
