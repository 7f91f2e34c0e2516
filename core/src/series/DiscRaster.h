// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

#include <zembra/paint/Geometry.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zembra {

/// Draws many equal discs into a picture, one over the other.
///
/// Each disc is a ready-made stamp at the nearest quarter of a pixel. Once so many lie in the same
/// place that another one changes nothing, the rest is left out; parts of the picture that are full
/// all around are passed by.
class DiscRaster {
public:
    /// Begins a picture of the whole pixels that meet `area`.
    void begin(const Rect& area, double radius, const Color& color);
    void add(const Point& centre);
    /// The picture, cropped to what was drawn; without a buffer where that is nothing.
    Picture finish();

private:
    static constexpr int placesPerPixel = 4;

    void stamp(const std::uint8_t* alpha, std::uint8_t* target) const;
    void lookForFullParts();

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    // Stamps reach beyond the picture by less than this, so that none has to be cut.
    int margin = 0;
    int stride = 0;
    int reach = 0;
    int stampRows = 0;
    // Stamps are padded to a width that suits the processor.
    int stampWidth = 0;
    unsigned enough = 1;
    Color color;
    std::array<std::vector<std::uint8_t>, std::size_t{placesPerPixel} * placesPerPixel> stamps;
    std::vector<std::uint8_t> plane;
    // Of opaque discs, the places of each pixel that have one; of others, how many it has.
    std::vector<std::uint16_t> places;
    // Squares of the plane in which a disc changes nothing any more, whether it reaches its
    // neighbours or not.
    std::vector<std::uint8_t> passedBy;
    int squaresAcross = 0;
    int squaresDown = 0;
    // Stamps since the last look for such squares.
    int work = 0;
    int patience = 0;
    int firstRow = 0;
    int lastRow = -1;
};

} // namespace zembra
