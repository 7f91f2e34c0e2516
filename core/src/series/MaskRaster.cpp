// SPDX-License-Identifier: MIT
#include "MaskRaster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

constexpr int across = 8;
constexpr int down = 4;
// Thinner strokes would slip through between the points; they are drawn fainter instead.
constexpr double thinnest = 0.5;

struct Range {
    double low;
    double high;
};

Range ordered(double a, double b) {
    return a < b ? Range{a, b} : Range{b, a};
}

} // namespace

void MaskRaster::begin(const Rect& area, double penWidth) {
    left = static_cast<int>(std::floor(area.left()));
    top = static_cast<int>(std::floor(area.top()));
    columns = std::max(0, static_cast<int>(std::ceil(area.right())) - left);
    rows = std::max(0, static_cast<int>(std::ceil(area.bottom())) - top);
    half = 0.5 * std::max(penWidth, thinnest);
    strength = std::min(penWidth / thinnest, 1.0);
    mask.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows * down), 0);
    done.assign(static_cast<std::size_t>(rows * down), 0);
    segments = 0;
    nextLook = 1024;
    full = mask.empty();
}

void MaskRaster::add(std::span<const Point> piece) {
    if (piece.size() == 1)
        addSegment({piece[0].x - half, piece[0].y}, {piece[0].x + half, piece[0].y});
    for (std::size_t i = 1; i < piece.size() && !full; ++i) {
        Point a = piece[i - 1];
        Point b = piece[i];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (!(length > 0.0))
            continue;
        const Point along{(b.x - a.x) / length * half, (b.y - a.y) / length * half};
        if (i + 1 < piece.size()) {
            const Point& c = piece[i + 1];
            const double next = std::hypot(c.x - b.x, c.y - b.y);
            if (next > 0.0) {
                const Point n{-along.y, along.x};
                const Point m{-(c.y - b.y) / next * half, (c.x - b.x) / next * half};
                // Nearly straight joins leave no wedge that a point could fall into.
                if (n.x * m.x + n.y * m.y < 0.95 * half * half) {
                    addTriangle(b, {b.x + n.x, b.y + n.y}, {b.x + m.x, b.y + m.y});
                    addTriangle(b, {b.x - n.x, b.y - n.y}, {b.x - m.x, b.y - m.y});
                }
            }
        } else {
            b = {b.x + along.x, b.y + along.y};
        }
        if (i == 1)
            a = {a.x - along.x, a.y - along.y};
        addSegment(a, b);
        if (++segments == nextLook)
            lookForRoom();
    }
}

void MaskRaster::addSegment(const Point& a, const Point& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    // The stroke is where two stripes cross: one along the segment, one across it.
    const double reachY = half * std::abs(dx) / length;
    const auto [low, high] = ordered(a.y, b.y);
    const int first = std::max(0, static_cast<int>(std::ceil((low - reachY - top) * down - 0.5)));
    const int last =
        std::min(rows * down - 1, static_cast<int>(std::floor((high + reachY - top) * down - 0.5)));
    constexpr double unbounded = 1e9;
    const bool flat = std::abs(dy) < 1e-9;
    const bool upright = std::abs(dx) < 1e-9;
    const double slope = flat ? 0.0 : dx / dy;
    const double width = flat ? unbounded : half * length / std::abs(dy);
    const double fall = upright ? 0.0 : -dy / dx;
    for (int row = first; row <= last; ++row) {
        const double y = (row + 0.5) / down + top;
        const double middle = a.x + (y - a.y) * slope;
        Range ends = upright ? Range{-unbounded, unbounded}
                             : ordered(a.x + (y - a.y) * fall, b.x + (y - b.y) * fall);
        fill(row, std::max(middle - width, ends.low), std::min(middle + width, ends.high));
    }
}

void MaskRaster::addTriangle(const Point& a, const Point& b, const Point& c) {
    const std::array<Point, 3> corners{a, b, c};
    const double low = std::min({a.y, b.y, c.y});
    const double high = std::max({a.y, b.y, c.y});
    const int first = std::max(0, static_cast<int>(std::ceil((low - top) * down - 0.5)));
    const int last =
        std::min(rows * down - 1, static_cast<int>(std::floor((high - top) * down - 0.5)));
    for (int row = first; row <= last; ++row) {
        const double y = (row + 0.5) / down + top;
        double from = std::numeric_limits<double>::infinity();
        double to = -from;
        for (std::size_t i = 0; i < 3; ++i) {
            const Point& p = corners[i];
            const Point& q = corners[(i + 1) % 3];
            if ((p.y <= y) == (q.y <= y))
                continue;
            const double x = p.x + (y - p.y) / (q.y - p.y) * (q.x - p.x);
            from = std::min(from, x);
            to = std::max(to, x);
        }
        fill(row, from, to);
    }
}

void MaskRaster::fill(int row, double from, double to) {
    // Points lie in the middles of the eighths of a pixel.
    const double begin = std::max((from - left) * across + 0.5, 0.0);
    const double end = std::min((to - left) * across + 0.5, static_cast<double>(columns * across));
    if (!(begin < end) || done[static_cast<std::size_t>(row)])
        return;
    const auto first = static_cast<unsigned>(begin);
    const auto last = static_cast<unsigned>(end);
    if (first >= last)
        return;
    std::uint8_t* line =
        mask.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(columns);
    const unsigned firstByte = first / across;
    const unsigned lastByte = (last - 1) / across;
    const auto head = static_cast<std::uint8_t>(0xFFu << (first % across));
    const auto tail = static_cast<std::uint8_t>(0xFFu >> (across - 1 - (last - 1) % across));
    if (firstByte == lastByte) {
        line[firstByte] = static_cast<std::uint8_t>(line[firstByte] | (head & tail));
        return;
    }
    line[firstByte] = static_cast<std::uint8_t>(line[firstByte] | head);
    std::memset(line + firstByte + 1, 0xFF, lastByte - firstByte - 1);
    line[lastByte] = static_cast<std::uint8_t>(line[lastByte] | tail);
}

void MaskRaster::lookForRoom() {
    nextLook *= 2;
    full = true;
    for (std::size_t row = 0; row < done.size(); ++row) {
        const auto begin = mask.begin() + static_cast<std::ptrdiff_t>(row) * columns;
        done[row] = std::all_of(begin, begin + columns, [](std::uint8_t m) { return m == 0xFF; });
        full = full && done[row];
    }
}

Picture MaskRaster::finish(const Color& color) {
    Picture picture;
    if (std::all_of(mask.begin(), mask.end(), [](std::uint8_t m) { return m == 0; }))
        return picture;
    picture.width = columns;
    picture.height = rows;
    picture.x = left;
    picture.y = top;
    const auto stride = static_cast<std::size_t>(columns);
    picture.buffer = takePictureBuffer(stride * static_cast<std::size_t>(rows) * 4);
    std::array<std::uint32_t, across * down + 1> shades{};
    for (std::size_t hits = 0; hits < shades.size(); ++hits) {
        const double share = static_cast<double>(hits) / (across * down);
        shades[hits] = packedPixel(
            color, static_cast<unsigned>(std::lround(color.alpha() * strength * share)));
    }
    for (int row = 0; row < rows; ++row) {
        const std::uint8_t* points = mask.data() + static_cast<std::size_t>(row) * down * stride;
        std::uint8_t* pixels = picture.buffer.pixels + static_cast<std::size_t>(row) * stride * 4;
        for (std::size_t i = 0; i < stride; ++i) {
            const std::uint32_t all = static_cast<std::uint32_t>(points[i]) |
                                      static_cast<std::uint32_t>(points[i + stride]) << 8 |
                                      static_cast<std::uint32_t>(points[i + 2 * stride]) << 16 |
                                      static_cast<std::uint32_t>(points[i + 3 * stride]) << 24;
            const std::uint32_t pixel = shades[static_cast<std::size_t>(std::popcount(all))];
            std::memcpy(pixels + 4 * i, &pixel, 4);
        }
    }
    return picture;
}

} // namespace zembra
