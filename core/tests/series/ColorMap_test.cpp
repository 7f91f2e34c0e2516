// SPDX-License-Identifier: MIT
#include <zembra/series/ColorMap.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

using namespace zembra;

namespace {

int distance(const Color& a, std::uint32_t b) {
    const auto part = [b](int shift) { return static_cast<int>(b >> shift & 0xffU); };
    return std::max({std::abs(a.red() - part(16)), std::abs(a.green() - part(8)),
                     std::abs(a.blue() - part(0))});
}

// OKLab (B. Ottosson, 2020): lightness 0 to 1 and two opponent colours.
std::array<double, 3> oklab(const Color& color) {
    const auto linear = [](int component) {
        const double c = component / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const double r = linear(color.red());
    const double g = linear(color.green());
    const double b = linear(color.blue());
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

double lightness(const Color& color) {
    return oklab(color)[0];
}

double colorDistance(const Color& a, const Color& b) {
    const auto p = oklab(a);
    const auto q = oklab(b);
    return std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
}

} // namespace

TEST(ColorMap, MeetsTheColorsBetweenThoseItIsDrawnThrough) {
    const struct {
        ColorMap map;
        std::vector<std::uint32_t> tenths;
    } rows[] = {
        {ColorMap::viridis(),
         {0x440154, 0x482878, 0x3e4a89, 0x31688e, 0x26828e, 0x1f9e89, 0x35b779, 0x6dcd59, 0xb4de2c,
          0xfde725}},
        {ColorMap::magma(),
         {0x000004, 0x180f3e, 0x451077, 0x721f81, 0x9f2f7f, 0xcd4071, 0xf1605d, 0xfd9567, 0xfec98d,
          0xfcfdbf}},
        {ColorMap::inferno(),
         {0x000004, 0x1b0c42, 0x4b0c6b, 0x781c6d, 0xa52c60, 0xcf4446, 0xed6925, 0xfb9a06, 0xf7d03c,
          0xfcffa4}},
        {ColorMap::plasma(),
         {0x0d0887, 0x47039f, 0x7301a8, 0x9c179e, 0xbd3786, 0xd8576b, 0xed7953, 0xfa9e3b, 0xfdc926,
          0xf0f921}},
        {ColorMap::cividis(),
         {0x00204d, 0x00336f, 0x39486b, 0x575c6d, 0x707173, 0x8a8779, 0xa69d75, 0xc4b56c, 0xe4cf5b,
          0xffea46}},
    };
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.tenths.size(); ++i)
            EXPECT_LE(distance(row.map.at(static_cast<double>(i) / 9.0), row.tenths[i]), 6)
                << (&row - rows) << " at " << i;
}

TEST(ColorMap, SequentialMapsGrowLighterAtEveryStep) {
    for (const ColorMap& map : {ColorMap::viridis(), ColorMap::magma(), ColorMap::inferno(),
                                ColorMap::plasma(), ColorMap::cividis()}) {
        double before = -1.0;
        for (int i = 0; i <= 64; ++i) {
            const double now = lightness(map.at(i / 64.0));
            EXPECT_GT(now, before);
            before = now;
        }
    }
}

TEST(ColorMap, CoolWarmRunsFromBlueOverLightGreyToRedEvenly) {
    const ColorMap map = ColorMap::coolWarm();
    EXPECT_EQ(map.at(0.0), Color(59, 76, 192));
    EXPECT_EQ(map.at(1.0), Color(180, 4, 38));
    const Color middle = map.at(0.5);
    EXPECT_LE(distance(middle, 0xdddddd), 3);
    for (double share : {0.1, 0.2, 0.3, 0.4})
        EXPECT_NEAR(lightness(map.at(share)), lightness(map.at(1.0 - share)), 0.03) << share;
}

TEST(ColorMap, TidesEndWhereTheyBeginAndTakeEvenSteps) {
    const ColorMap map = ColorMap::tides();
    EXPECT_LE(colorDistance(map.at(0.0), map.at(1.0)), 0.01);
    double least = 1e9;
    double most = 0.0;
    for (int i = 0; i < 32; ++i) {
        const double step = colorDistance(map.at(i / 32.0), map.at((i + 1) / 32.0));
        least = std::min(least, step);
        most = std::max(most, step);
    }
    EXPECT_GT(least, 0.02);
    EXPECT_LT(most, 1.4 * least);
}

TEST(ColorMap, NumbersBeyondTheEndsTakeTheEnds) {
    const ColorMap map({Color(10, 20, 30), Color(110, 220, 130)});
    const struct {
        double share;
        Color color;
    } rows[] = {
        {-1.0, {10, 20, 30}},
        {0.0, {10, 20, 30}},
        {1.0, {110, 220, 130}},
        {7.0, {110, 220, 130}},
        {std::numeric_limits<double>::infinity(), {110, 220, 130}},
        {-std::numeric_limits<double>::infinity(), {10, 20, 30}},
        {std::numeric_limits<double>::quiet_NaN(), {10, 20, 30}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(map.at(row.share), row.color) << row.share;
    EXPECT_LE(distance(map.at(0.5), 0x3c7850), 1);
}

TEST(ColorMap, NoColorsGiveBlackAndOneFillsTheMap) {
    EXPECT_EQ(ColorMap(std::vector<Color>{}).at(0.3), Color());
    EXPECT_EQ(ColorMap({Color(1, 2, 3, 4)}).at(0.7), Color(1, 2, 3, 4));
}

TEST(ColorMap, ReversedTurnsItAround) {
    const ColorMap map = ColorMap::magma();
    EXPECT_EQ(map.reversed().at(0.0), map.at(1.0));
    EXPECT_EQ(map.reversed().at(0.25), map.at(0.75));
    EXPECT_EQ(map.reversed().reversed(), map);
    EXPECT_NE(map.reversed(), map);
    EXPECT_EQ(ColorMap(), ColorMap::viridis());
}
