// SPDX-License-Identifier: MIT
#include "MarkerRaster.h"

#include "MarkerOutline.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

constexpr int placesPerPixel = 4;
// Stamps up to this size are kept. Units: quarters of a pixel.
constexpr int largestKept = 128;
// Less than this is no shade of a colour.
constexpr float nothing = 0.4F / 255.0F;

// Adds the part of a row of pixels between two positions, in pixels from its first one.
void addSpan(std::vector<double>& row, double from, double to, double weight) {
    const auto width = static_cast<double>(row.size());
    from = std::clamp(from, 0.0, width);
    to = std::clamp(to, 0.0, width);
    for (double pixel = std::floor(from); pixel < to; pixel += 1.0)
        row[static_cast<std::size_t>(pixel)] +=
            weight * (std::min(to, pixel + 1.0) - std::max(from, pixel));
}

// Where the edges of a polygon cross a level, in order.
void crossings(const std::vector<Point>& polygon, double level, std::vector<double>& found) {
    found.clear();
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = polygon[(i + 1) % polygon.size()];
        if ((a.y <= level) != (b.y <= level))
            found.push_back(a.x + (level - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    std::sort(found.begin(), found.end());
}

} // namespace

void MarkerRaster::begin(const Rect& area, MarkerShape markerShape) {
    if (markerShape != shape)
        stamps.clear();
    shape = markerShape;
    left = static_cast<int>(std::floor(area.left()));
    top = static_cast<int>(std::floor(area.top()));
    columns = std::max(0, static_cast<int>(std::ceil(area.right())) - left);
    rows = std::max(0, static_cast<int>(std::ceil(area.bottom())) - top);
    plane.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), {});
    places.assign(plane.size(), 0);
    firstSize.reset();
    firstRow = rows;
    lastRow = -1;
}

// Exact along rows, by eight lines to a pixel across them.
MarkerRaster::Stamp MarkerRaster::stampOf(MarkerShape shape, double size, int place) {
    constexpr int lines = 8;
    const auto offset = [](int quarter) { return (quarter + 0.5) / placesPerPixel; };
    Stamp stamp;
    stamp.reach = static_cast<int>(std::ceil(markerReach(size)));
    const int width = stamp.width();
    std::vector<Point> outline = markerOutline(shape, size);
    for (Point& p : outline)
        p = {p.x + stamp.reach + offset(place % placesPerPixel),
             p.y + stamp.reach + offset(place / placesPerPixel)};
    stamp.cover.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(width));
    std::vector<double> found;
    std::vector<double> row(static_cast<std::size_t>(width));
    for (int y = 0; y < width; ++y) {
        std::fill(row.begin(), row.end(), 0.0);
        for (int line = 0; line < lines; ++line) {
            crossings(outline, y + (line + 0.5) / lines, found);
            for (std::size_t i = 0; i + 1 < found.size(); i += 2)
                addSpan(row, found[i], found[i + 1], 1.0 / lines);
        }
        for (const double cover : row)
            stamp.cover.push_back(
                static_cast<std::uint8_t>(std::lround(255.0 * std::min(cover, 1.0))));
    }
    return stamp;
}

const MarkerRaster::Stamp& MarkerRaster::stampFor(int sizeClass, int place) {
    const double size = static_cast<double>(sizeClass) / placesPerPixel;
    if (sizeClass > largestKept) {
        large = stampOf(shape, size, place);
        return large;
    }
    const auto [found, isNew] = stamps.try_emplace({sizeClass, place});
    if (isNew)
        found->second = stampOf(shape, size, place);
    return found->second;
}

void MarkerRaster::add(const Marker& marker) {
    const double size = std::min(marker.size, largestMarker);
    const double u = marker.centre.x - left;
    const double v = marker.centre.y - top;
    const double reach = markerReach(size) + 1.0;
    // What lies further outside reaches no pixel of the picture.
    if (!(u >= -reach && v >= -reach && u < columns + reach && v < rows + reach) ||
        marker.color.alpha() == 0)
        return;
    const double wholeU = std::floor(u);
    const double wholeV = std::floor(v);
    const int column = static_cast<int>(wholeU);
    const int row = static_cast<int>(wholeV);
    const int place = static_cast<int>((v - wholeV) * placesPerPixel) * placesPerPixel +
                      static_cast<int>((u - wholeU) * placesPerPixel);
    const int sizeClass = std::max(1, static_cast<int>(std::lround(size * placesPerPixel)));
    if (!firstSize)
        firstSize = sizeClass;
    const bool isInside = column >= 0 && row >= 0 && column < columns && row < rows;
    if (isInside && sizeClass <= *firstSize) {
        std::uint16_t& taken =
            places[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                   static_cast<std::size_t>(column)];
        const auto bit = static_cast<std::uint16_t>(1u << static_cast<unsigned>(place));
        if (taken & bit)
            return;
        if (marker.color.alpha() == 255 && sizeClass == *firstSize)
            taken = static_cast<std::uint16_t>(taken | bit);
    }
    blend(stampFor(sizeClass, place), column, row, marker.color);
}

void MarkerRaster::blend(const Stamp& stamp, int column, int row, const Color& color) {
    const int firstColumn = std::max(column - stamp.reach, 0);
    const int endColumn = std::min(column + stamp.reach + 1, columns);
    const int begin = std::max(row - stamp.reach, 0);
    const int end = std::min(row + stamp.reach + 1, rows);
    if (begin >= end || firstColumn >= endColumn)
        return;
    constexpr float unit = 1.0F / 255.0F;
    const float red = unit * static_cast<float>(color.red());
    const float green = unit * static_cast<float>(color.green());
    const float blue = unit * static_cast<float>(color.blue());
    const float opacity = unit * unit * static_cast<float>(color.alpha());
    for (int y = begin; y < end; ++y) {
        const std::uint8_t* cover = stamp.cover.data() +
                                    static_cast<std::size_t>(y - row + stamp.reach) *
                                        static_cast<std::size_t>(stamp.width()) +
                                    static_cast<std::size_t>(firstColumn - column + stamp.reach);
        Pixel* pixel = plane.data() +
                       static_cast<std::size_t>(y) * static_cast<std::size_t>(columns) +
                       static_cast<std::size_t>(firstColumn);
        for (int x = firstColumn; x < endColumn; ++x, ++cover, ++pixel) {
            const float room = 1.0F - pixel->alpha;
            if (*cover == 0 || room < nothing)
                continue;
            const float added = room * opacity * static_cast<float>(*cover);
            pixel->red += added * red;
            pixel->green += added * green;
            pixel->blue += added * blue;
            pixel->alpha += added;
        }
    }
    firstRow = std::min(firstRow, begin);
    lastRow = std::max(lastRow, end - 1);
}

Picture MarkerRaster::finish() {
    Picture picture;
    if (firstRow > lastRow)
        return picture;
    picture.width = columns;
    picture.height = lastRow - firstRow + 1;
    picture.x = left;
    picture.y = top + firstRow;
    const std::size_t count =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.buffer = takePictureBuffer(count * 4);
    const Pixel* pixel =
        plane.data() + static_cast<std::size_t>(firstRow) * static_cast<std::size_t>(columns);
    std::uint8_t* bytes = picture.buffer.pixels;
    const auto byte = [](float part) {
        return static_cast<std::uint8_t>(std::min(255.0F * part + 0.5F, 255.0F));
    };
    for (std::size_t i = 0; i < count; ++i, ++pixel, bytes += 4) {
        const float share = pixel->alpha > 0.0F ? 1.0F / pixel->alpha : 0.0F;
        bytes[0] = byte(share * pixel->red);
        bytes[1] = byte(share * pixel->green);
        bytes[2] = byte(share * pixel->blue);
        bytes[3] = byte(pixel->alpha);
    }
    return picture;
}

} // namespace zembra
