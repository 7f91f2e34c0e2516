// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

#include <zembra/series/Canvas.h>
#include <zembra/series/Marker.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace zembra {

/// Draws markers of one shape and any sizes and colours into a picture, from the topmost to the
/// lowest, at quarters of a pixel in place and size.
///
/// What is covered already costs next to nothing, so that the work is bounded by the pixels once
/// there are many markers.
class MarkerRaster {
public:
    /// Begins a picture of the whole pixels that meet `area`.
    void begin(const Rect& area, MarkerShape markerShape);
    /// Draws below everything added so far. Requires: a size above 0.
    void add(const Marker& marker);
    /// The picture, cropped to what was drawn; without a buffer where that is nothing.
    Picture finish();

private:
    /// How much of each pixel a marker covers, by pixels from that of its centre.
    struct Stamp {
        int reach = 0;
        std::vector<std::uint8_t> cover;

        int width() const { return 2 * reach + 1; }
    };
    /// Colour by its parts times alpha, and alpha. Range: 0..1.
    struct Pixel {
        float red = 0.0F;
        float green = 0.0F;
        float blue = 0.0F;
        float alpha = 0.0F;
    };

    static Stamp stampOf(MarkerShape shape, double size, int place);
    const Stamp& stampFor(int sizeClass, int place);
    void blend(const Stamp& stamp, int column, int row, const Color& color);

    MarkerShape shape = MarkerShape::Circle;
    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    std::vector<Pixel> plane;
    // The places of each pixel where an opaque marker of the first one's size lies.
    std::vector<std::uint16_t> places;
    std::optional<int> firstSize;
    std::map<std::pair<int, int>, Stamp> stamps;
    Stamp large;
    int firstRow = 0;
    int lastRow = -1;
};

} // namespace zembra
