// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>
#include <zembra/zembra_export.h>

#include <array>
#include <memory>
#include <vector>

namespace zembra {

/// A row of colours that stands for the numbers from 0 to 1.
///
/// An immutable, cheap value: copies share a table of 256 colours.
class ZEMBRA_EXPORT ColorMap {
public:
    /// Viridis.
    ColorMap();
    /// Through opaque or transparent colours at even distances, in straight lines of sRGB. None
    /// gives black, one that colour throughout.
    explicit ColorMap(const std::vector<Color>& stops);

    /// Dark to light in even steps of lightness, readable for colour-blind eyes and in grey.
    ///
    /// Source: S. van der Walt, N. Smith, colour maps of 2015, released under CC0; smooth curves
    /// through eleven of their colours, which miss the others by at most 6 of 255.
    static ColorMap viridis();
    static ColorMap magma();
    static ColorMap inferno();
    static ColorMap plasma();
    /// From blue to yellow, alike for normal and red-green-blind eyes.
    /// Source: J. Nuñez, C. Anderton, R. Renslow, "Optimizing colormaps with consideration for
    /// color vision deficiency", 2018; a smooth curve through twelve of its colours.
    static ColorMap cividis();
    /// Diverging: blue over a light grey to red, evenly to both sides.
    /// Source: K. Moreland, "Diverging Color Maps for Scientific Visualization", 2009, computed.
    static ColorMap coolWarm();
    /// Cyclic, for angles and times of day: light, blue, dark, red and light again. Evenly spaced
    /// in OKLab (B. Ottosson, "A perceptual color space for image processing", 2020).
    static ColorMap tides();

    ColorMap reversed() const;

    /// The colour of a number; beyond 0..1 that of the nearer end, for NaN the first one.
    Color at(double share) const;

    friend bool operator==(const ColorMap& a, const ColorMap& b) { return *a.table == *b.table; }

private:
    using Table = std::array<Color, 256>;
    explicit ColorMap(std::shared_ptr<const Table> table) : table(std::move(table)) {}

    std::shared_ptr<const Table> table;
};

} // namespace zembra
