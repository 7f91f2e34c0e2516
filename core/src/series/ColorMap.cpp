// SPDX-License-Identifier: MIT
#include <zembra/series/ColorMap.h>

#include "ColorSpace.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <span>
#include <utility>

namespace zembra {

namespace {

using Table = std::array<Color, 256>;
using Tables = std::shared_ptr<const Table>;

int rounded(double component) {
    return static_cast<int>(std::lround(std::clamp(component, 0.0, 255.0)));
}

template <class ColorAt>
Tables tableOf(ColorAt colorAt) {
    auto table = std::make_shared<Table>();
    for (std::size_t i = 0; i < table->size(); ++i)
        (*table)[i] = colorAt(static_cast<double>(i) / static_cast<double>(table->size() - 1));
    return table;
}

// A cubic through four neighbours in a row (E. Catmull, R. Rom, "A class of local interpolating
// splines", 1974), between the middle two.
double cubic(double p0, double p1, double p2, double p3, double t) {
    const double a = 2.0 * p1;
    const double b = p2 - p0;
    const double c = 2.0 * p0 - 5.0 * p1 + 4.0 * p2 - p3;
    const double d = 3.0 * (p1 - p2) + p3 - p0;
    return 0.5 * (a + t * (b + t * (c + t * d)));
}

Tables curveThrough(std::span<const std::uint32_t> colors) {
    const auto component = [&](std::ptrdiff_t index, int shift) {
        const auto last = static_cast<std::ptrdiff_t>(colors.size()) - 1;
        const auto at = [&](std::ptrdiff_t i) {
            return static_cast<double>(colors[static_cast<std::size_t>(i)] >> shift & 0xffU);
        };
        // Beyond the ends the curve goes on as it came.
        if (index < 0)
            return 2.0 * at(0) - at(1);
        return index > last ? 2.0 * at(last) - at(last - 1) : at(index);
    };
    return tableOf([&](double share) {
        const double place = share * static_cast<double>(colors.size() - 1);
        const auto first = std::min(static_cast<std::ptrdiff_t>(place),
                                    static_cast<std::ptrdiff_t>(colors.size()) - 2);
        const auto curve = [&](int shift) {
            return rounded(cubic(component(first - 1, shift), component(first, shift),
                                 component(first + 1, shift), component(first + 2, shift),
                                 place - static_cast<double>(first)));
        };
        return Color(curve(16), curve(8), curve(0));
    });
}

// Moreland's space: Lab in spherical coordinates, so that a straight line to white keeps its hue.
struct Msh {
    double m;
    double s;
    double h;
};

Msh toMsh(const Color& color) {
    const Triple lab = labOf(color);
    const double m = std::hypot(lab[0], lab[1], lab[2]);
    return {m, std::acos(lab[0] / m), std::atan2(lab[2], lab[1])};
}

Color fromMsh(const Msh& c) {
    return colorOfLab({c.m * std::cos(c.s), c.m * std::sin(c.s) * std::cos(c.h),
                       c.m * std::sin(c.s) * std::sin(c.h)});
}

// The hue for an unsaturated end, turned away from purple.
double adjustedHue(const Msh& saturated, double unsaturatedM) {
    if (saturated.m >= unsaturatedM)
        return saturated.h;
    const double spin = saturated.s *
                        std::sqrt(unsaturatedM * unsaturatedM - saturated.m * saturated.m) /
                        (saturated.m * std::sin(saturated.s));
    return saturated.h > -std::numbers::pi / 3.0 ? saturated.h + spin : saturated.h - spin;
}

Tables divergingTable(const Color& low, const Color& high) {
    const Msh first = toMsh(low);
    const Msh second = toMsh(high);
    const double middle = std::max({first.m, second.m, 88.0});
    return tableOf([&](double share) {
        const Msh& end = share < 0.5 ? first : second;
        const Msh white{middle, 0.0, adjustedHue(end, middle)};
        const double t = share < 0.5 ? 2.0 * share : 2.0 - 2.0 * share;
        return fromMsh({std::lerp(end.m, white.m, t), std::lerp(end.s, white.s, t),
                        std::lerp(end.h, white.h, t)});
    });
}

// Once around: lightness falls and rises, chroma grows towards one hue on the way down and towards
// the other on the way up.
Triple tide(double share) {
    const double angle = 2.0 * std::numbers::pi * share;
    const double chroma = 0.125 * std::sin(angle);
    const double hue = (chroma > 0.0 ? 258.0 : 35.0) * std::numbers::pi / 180.0;
    return {0.62 + 0.29 * std::cos(angle), std::abs(chroma) * std::cos(hue),
            std::abs(chroma) * std::sin(hue)};
}

Tables cyclicTable() {
    // The way travelled up to each of many steps, to walk it at one speed afterwards.
    constexpr int steps = 4096;
    std::vector<double> way = {0.0};
    for (int i = 1; i <= steps; ++i) {
        const Triple a = tide(static_cast<double>(i - 1) / steps);
        const Triple b = tide(static_cast<double>(i) / steps);
        way.push_back(way.back() + std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]));
    }
    return tableOf([&](double share) {
        const auto next = std::lower_bound(way.begin(), way.end(), share * way.back());
        return colorOfOklab(tide(static_cast<double>(next - way.begin()) / steps));
    });
}

} // namespace

ColorMap::ColorMap() : ColorMap(viridis()) {}

ColorMap::ColorMap(const std::vector<Color>& stops)
    : ColorMap(tableOf([&](double share) {
          if (stops.empty())
              return Color();
          const double place = share * static_cast<double>(stops.size() - 1);
          const auto first = static_cast<std::size_t>(place);
          return mix(stops[first], stops[std::min(first + 1, stops.size() - 1)],
                     place - static_cast<double>(first));
      })) {}

ColorMap ColorMap::viridis() {
    static constexpr std::array<std::uint32_t, 11> colors = {0x440154, 0x482576, 0x414487, 0x35608d,
                                                             0x2a788e, 0x21908c, 0x22a884, 0x43bf71,
                                                             0x7ad151, 0xbbdf27, 0xfde725};
    static const Tables shared = curveThrough(colors);
    return ColorMap(shared);
}

ColorMap ColorMap::magma() {
    static constexpr std::array<std::uint32_t, 11> colors = {0x000004, 0x140e36, 0x3b0f70, 0x641a80,
                                                             0x8c2981, 0xb73779, 0xde4968, 0xf7705c,
                                                             0xfe9f6d, 0xfecf92, 0xfcfdbf};
    static const Tables shared = curveThrough(colors);
    return ColorMap(shared);
}

ColorMap ColorMap::inferno() {
    static constexpr std::array<std::uint32_t, 11> colors = {0x000004, 0x160b39, 0x420a68, 0x6a176e,
                                                             0x932667, 0xbc3754, 0xdd513a, 0xf37819,
                                                             0xfca50a, 0xf6d746, 0xfcffa4};
    static const Tables shared = curveThrough(colors);
    return ColorMap(shared);
}

ColorMap ColorMap::plasma() {
    static constexpr std::array<std::uint32_t, 11> colors = {0x0d0887, 0x41049d, 0x6a00a8, 0x8f0da4,
                                                             0xb12a90, 0xcc4678, 0xe16462, 0xf2844b,
                                                             0xfca636, 0xfcce25, 0xf0f921};
    static const Tables shared = curveThrough(colors);
    return ColorMap(shared);
}

ColorMap ColorMap::cividis() {
    static constexpr std::array<std::uint32_t, 12> colors = {
        0x00204d, 0x00306f, 0x2a406c, 0x48526b, 0x5e626e, 0x727374,
        0x878479, 0x9e9677, 0xb6a971, 0xd0be67, 0xead357, 0xffea46};
    static const Tables shared = curveThrough(colors);
    return ColorMap(shared);
}

ColorMap ColorMap::coolWarm() {
    static const Tables shared = divergingTable({59, 76, 192}, {180, 4, 38});
    return ColorMap(shared);
}

ColorMap ColorMap::tides() {
    static const Tables shared = cyclicTable();
    return ColorMap(shared);
}

ColorMap ColorMap::reversed() const {
    auto turned = std::make_shared<Table>(*table);
    std::reverse(turned->begin(), turned->end());
    return ColorMap(std::move(turned));
}

Color ColorMap::at(double share) const {
    if (!(share > 0.0))
        return table->front();
    return share >= 1.0 ? table->back() : (*table)[static_cast<std::size_t>(share * 255.0 + 0.5)];
}

} // namespace zembra
