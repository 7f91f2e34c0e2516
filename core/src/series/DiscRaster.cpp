// SPDX-License-Identifier: MIT
#include "DiscRaster.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// Pixels that the processor takes at once.
constexpr int lanes = 16;
// Pixels along the side of what is looked at for being full.
constexpr int square = 16;
// Stamps that cost about ten times as much as a look.
constexpr int stampsBetweenLooks = 1 << 14;

// The share of a pixel inside a disc, by points within the pixel.
double discCover(double dx, double dy, double radius) {
    const double distance = std::hypot(dx, dy);
    if (distance <= radius - 0.75)
        return 1.0;
    if (distance >= radius + 0.75)
        return 0.0;
    constexpr int points = 8;
    int inside = 0;
    for (int i = 0; i < points; ++i)
        for (int k = 0; k < points; ++k) {
            const double x = dx + (i + 0.5) / points - 0.5;
            const double y = dy + (k + 0.5) / points - 0.5;
            inside += x * x + y * y <= radius * radius ? 1 : 0;
        }
    return static_cast<double>(inside) / (points * points);
}

} // namespace

void DiscRaster::begin(const Rect& area, double radius, const Color& discColor) {
    color = discColor;
    left = static_cast<int>(std::floor(area.left()));
    top = static_cast<int>(std::floor(area.top()));
    columns = std::max(0, static_cast<int>(std::ceil(area.right())) - left);
    rows = std::max(0, static_cast<int>(std::ceil(area.bottom())) - top);
    // A centre lies up to 3/8 beside the middle of its pixel.
    reach = std::max(1, static_cast<int>(std::ceil(radius + 0.375 - 0.5)));
    stampRows = 2 * reach + 1;
    stampWidth = (stampRows + lanes - 1) / lanes * lanes;
    margin = 2 * reach + stampWidth;
    stride = columns + 2 * margin;
    plane.assign(static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows + 2 * margin), 0);
    places.assign(plane.size(), 0);
    // Discs on each other show until less than half a shade of what lies below is left.
    const double rest = 1.0 - color.alpha() / 255.0;
    enough = rest > 0.0 && rest < 1.0
                 ? static_cast<unsigned>(std::ceil(std::log(0.5 / 255.0) / std::log(rest)))
                 : 1u;
    squaresAcross = (stride + square - 1) / square;
    squaresDown = (rows + 2 * margin + square - 1) / square;
    passedBy.assign(static_cast<std::size_t>(squaresAcross) * static_cast<std::size_t>(squaresDown),
                    0);
    work = 0;
    patience = stampsBetweenLooks;
    firstRow = rows + 2 * margin;
    lastRow = -1;
    for (int py = 0; py < placesPerPixel; ++py) {
        for (int px = 0; px < placesPerPixel; ++px) {
            std::vector<std::uint8_t>& alpha =
                stamps[static_cast<std::size_t>(py * placesPerPixel + px)];
            alpha.assign(static_cast<std::size_t>(stampRows * stampWidth), 0);
            // The place of the disc's centre within its pixel, from the pixel's middle.
            const double cx = (px + 0.5) / placesPerPixel - 0.5;
            const double cy = (py + 0.5) / placesPerPixel - 0.5;
            for (int row = 0; row < stampRows; ++row)
                for (int column = 0; column < stampRows; ++column)
                    alpha[static_cast<std::size_t>(row * stampWidth + column)] =
                        static_cast<std::uint8_t>(
                            std::lround(color.alpha() *
                                        discCover(column - reach - cx, row - reach - cy, radius)));
        }
    }
}

void DiscRaster::stamp(const std::uint8_t* alpha, std::uint8_t* target) const {
    for (int row = 0; row < stampRows; ++row, target += stride, alpha += stampWidth) {
        for (int block = 0; block < stampWidth; block += lanes) {
            // Copies tell the compiler that the two do not overlap, so that it uses vectors.
            std::array<std::uint8_t, lanes> over;
            std::array<std::uint8_t, lanes> below;
            std::memcpy(over.data(), alpha + block, lanes);
            std::memcpy(below.data(), target + block, lanes);
            for (std::size_t i = 0; i < lanes; ++i) {
                // The disc adds to what does not show yet; rounded as by a division.
                const auto product = static_cast<std::uint16_t>((255 - below[i]) * over[i] + 128);
                const auto added =
                    static_cast<std::uint16_t>(product + static_cast<std::uint16_t>(product >> 8));
                below[i] = static_cast<std::uint8_t>(below[i] + (added >> 8));
            }
            std::memcpy(target + block, below.data(), lanes);
        }
    }
}

void DiscRaster::lookForFullParts() {
    work = 0;
    // From here on the whole of a disc adds less than half a shade.
    const auto full = static_cast<std::uint8_t>(
        255 - (color.alpha() > 0 ? std::min(127 / color.alpha(), 255) : 255));
    const auto height = rows + 2 * margin;
    std::vector<std::uint8_t> isFull(passedBy.size(), 0);
    for (int down = 0; down < squaresDown; ++down) {
        for (int across = 0; across < squaresAcross; ++across) {
            // Nothing shows of the margin.
            const int left = std::max(across * square, margin);
            const int right = std::min(across * square + square, margin + columns);
            const int top = std::max(down * square, margin);
            const int bottom = std::min({down * square + square, margin + rows, height});
            std::uint8_t least = 255;
            for (int row = top; row < bottom; ++row) {
                const std::uint8_t* line =
                    plane.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(stride);
                for (int column = left; column < right; ++column)
                    least = line[column] < least ? line[column] : least;
            }
            isFull[static_cast<std::size_t>(down * squaresAcross + across)] = least >= full ? 1 : 0;
        }
    }
    bool found = false;
    for (int down = 0; down < squaresDown; ++down) {
        for (int across = 0; across < squaresAcross; ++across) {
            bool all = true;
            for (int y = std::max(down - 1, 0); y <= std::min(down + 1, squaresDown - 1); ++y)
                for (int x = std::max(across - 1, 0); x <= std::min(across + 1, squaresAcross - 1);
                     ++x)
                    all = all && isFull[static_cast<std::size_t>(y * squaresAcross + x)] != 0;
            auto& passed = passedBy[static_cast<std::size_t>(down * squaresAcross + across)];
            found = found || (all && passed == 0);
            passed = all ? 1 : 0;
        }
    }
    // Where looking found nothing, look less often.
    if (!found)
        patience *= 2;
}

void DiscRaster::add(const Point& centre) {
    const double u = centre.x - left + margin;
    const double v = centre.y - top + margin;
    // What lies further outside reaches no pixel of the picture.
    if (!(u >= margin - reach && v >= margin - reach && u < columns + margin + reach &&
          v < rows + margin + reach))
        return;
    const int column = static_cast<int>(u);
    const int row = static_cast<int>(v);
    if (passedBy[static_cast<std::size_t>(row / square) * static_cast<std::size_t>(squaresAcross) +
                 static_cast<std::size_t>(column / square)])
        return;
    const auto place =
        static_cast<unsigned>(static_cast<int>((v - row) * placesPerPixel) * placesPerPixel +
                              static_cast<int>((u - column) * placesPerPixel));
    const auto pixel = static_cast<std::size_t>(row) * static_cast<std::size_t>(stride) +
                       static_cast<std::size_t>(column);
    std::uint16_t& taken = places[pixel];
    if (enough == 1) {
        const auto bit = static_cast<std::uint16_t>(1u << place);
        if (taken & bit)
            return;
        taken = static_cast<std::uint16_t>(taken | bit);
    } else {
        constexpr unsigned all = placesPerPixel * placesPerPixel;
        if (taken >= enough * all)
            return;
        ++taken;
    }
    const auto corner = static_cast<std::size_t>(reach) * static_cast<std::size_t>(stride + 1);
    std::uint8_t* target = plane.data() + pixel - corner;
    stamp(stamps[place].data(), target);
    firstRow = std::min(firstRow, row - reach);
    lastRow = std::max(lastRow, row + reach);
    if (++work >= patience && reach <= square)
        lookForFullParts();
}

Picture DiscRaster::finish() {
    Picture picture;
    const int first = std::max(firstRow - margin, 0);
    const int last = std::min(lastRow - margin, rows - 1);
    if (first > last || columns == 0)
        return picture;
    picture.width = columns;
    picture.height = last - first + 1;
    picture.x = left;
    picture.y = top + first;
    picture.buffer = takePictureBuffer(static_cast<std::size_t>(picture.width) *
                                       static_cast<std::size_t>(picture.height) * 4);
    const std::uint32_t rgb = packedPixel(color, 0);
    std::uint8_t* pixels = picture.buffer.pixels;
    for (int row = first; row <= last; ++row) {
        const std::uint8_t* line =
            plane.data() +
            static_cast<std::size_t>(row + margin) * static_cast<std::size_t>(stride) +
            static_cast<std::size_t>(margin);
        for (int column = 0; column < columns; ++column, pixels += 4) {
            const std::uint32_t pixel =
                rgb | (static_cast<std::uint32_t>(line[column]) << alphaShift);
            std::memcpy(pixels, &pixel, 4);
        }
    }
    return picture;
}

} // namespace zembra
