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
// What is filled is known by columns of a pixel's width and this many rows of points.
constexpr int bandRows = 16 * down;
// And by this many, to pass by at greater steps.
constexpr int bandsPerBlock = 4;
constexpr int blockRows = bandsPerBlock * bandRows;
// So few missing points of a filled column are below the shades that a picture has.
constexpr int mostMissing = bandRows * across / 128;
// Thinner strokes would slip through between the points; they are drawn fainter instead.
constexpr double thinnest = 0.5;

struct Range {
    double low;
    double high;
};

Range ordered(double a, double b) {
    return a < b ? Range{a, b} : Range{b, a};
}

// Counted by hand, so that the compiler counts many bytes at once.
unsigned missingPoints(std::uint8_t byte) {
    unsigned bits = static_cast<std::uint8_t>(~byte);
    bits = (bits & 0x55u) + (bits >> 1 & 0x55u);
    bits = (bits & 0x33u) + (bits >> 2 & 0x33u);
    return (bits & 0x0Fu) + (bits >> 4);
}

double distance(const Point& a, const Point& b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
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
    bands = (rows * down + bandRows - 1) / bandRows;
    const auto stride = static_cast<std::size_t>(columns);
    openInBand.resize(static_cast<std::size_t>(bands) * stride);
    for (std::size_t i = 0; i < openInBand.size(); ++i)
        openInBand[i] = static_cast<std::int32_t>(i % stride);
    openInBlock.assign(
        openInBand.begin(),
        openInBand.begin() +
            static_cast<std::ptrdiff_t>(
                static_cast<std::size_t>((bands + bandsPerBlock - 1) / bandsPerBlock) * stride));
    openColumns = openInBand.size();
    work = 0;
    // A look costs about as much as passing by this many rows.
    patience = mask.size() / 16 + 1;
}

void MaskRaster::add(std::span<const Point> piece) {
    if (piece.size() == 1)
        addSegment({piece[0].x - half, piece[0].y}, {piece[0].x + half, piece[0].y});
    for (std::size_t i = 1; i < piece.size() && openColumns > 0; ++i) {
        Point a = piece[i - 1];
        Point b = piece[i];
        const double length = distance(a, b);
        if (!(length > 0.0))
            continue;
        const Point along{(b.x - a.x) / length * half, (b.y - a.y) / length * half};
        if (i + 1 < piece.size()) {
            const Point& c = piece[i + 1];
            const double next = distance(b, c);
            if (next > 0.0 && !isFilled({b.x - half, b.y - half, 2.0 * half, 2.0 * half})) {
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
        if (work > patience)
            lookForFilledParts();
    }
}

// Whether every point from `low` to `high` is reached already in a row of parts of the mask.
bool MaskRaster::isFilled(const std::vector<std::int32_t>& nextOpen, int part, double low,
                          double high) const {
    const double limit = columns - 1;
    if (!(high >= left && low <= left + limit + 1.0))
        return true;
    const auto first = static_cast<std::size_t>(std::clamp(low - left, 0.0, limit));
    const int last = static_cast<int>(std::min(high - left, limit));
    return nextOpen[static_cast<std::size_t>(part) * static_cast<std::size_t>(columns) + first] >
           last;
}

bool MaskRaster::isFilled(const Rect& part) const {
    const int first = std::max(0, static_cast<int>((part.top() - top) * down) / bandRows);
    const int last = std::min(bands - 1, static_cast<int>((part.bottom() - top) * down) / bandRows);
    for (int band = first; band <= last; ++band)
        if (!isFilled(openInBand, band, part.left(), part.right()))
            return false;
    return true;
}

void MaskRaster::addSegment(const Point& a, const Point& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    // The stroke is where two stripes cross: one along the segment, one across it.
    const double reachY = half * std::abs(dx) / length;
    const auto [low, high] = ordered(a.y, b.y);
    const auto rowFrom = [&](double y) {
        return static_cast<int>(std::ceil((y - top) * down - 0.5));
    };
    const int first = std::max(0, rowFrom(low - reachY));
    const int last = std::min(rows * down, rowFrom(high + reachY)) - 1;
    // Between these rows, the stripe across does not count.
    const int innerFirst = std::max(first, rowFrom(low + reachY));
    const int innerLast = std::min(last, rowFrom(high - reachY) - 1);
    constexpr double unbounded = 1e9;
    const bool flat = std::abs(dy) < 1e-9;
    const bool upright = std::abs(dx) < 1e-9;
    const double slope = flat ? 0.0 : dx / dy;
    const double width = flat ? unbounded : half * length / std::abs(dy);
    const double fall = upright ? 0.0 : -dy / dx;
    const double west = std::min(a.x, b.x) - half;
    const double east = std::max(a.x, b.x) + half;
    const auto middleAt = [&](int row) { return a.x + ((row + 0.5) / down + top - a.y) * slope; };
    const auto addRow = [&](int row) {
        const double y = (row + 0.5) / down + top;
        const double middle = a.x + (y - a.y) * slope;
        const Range ends = upright ? Range{-unbounded, unbounded}
                                   : ordered(a.x + (y - a.y) * fall, b.x + (y - b.y) * fall);
        fill(row, std::max(middle - width, ends.low), std::min(middle + width, ends.high));
    };
    const auto addRows = [&](int begin, int end) {
        work += static_cast<std::size_t>(end - begin + 1);
        int row = begin;
        for (; row <= end && row < innerFirst; ++row)
            addRow(row);
        const double step = slope / down;
        for (double middle = middleAt(row); row <= end && row <= innerLast; ++row, middle += step)
            fill(row, middle - width, middle + width);
        for (; row <= end; ++row)
            addRow(row);
    };
    const auto isHidden = [&](const std::vector<std::int32_t>& nextOpen, int part, int begin,
                              int end) {
        const auto [from, to] = ordered(middleAt(begin), middleAt(end));
        return isFilled(nextOpen, part, std::max(from - width, west), std::min(to + width, east));
    };
    for (int begin = first; begin <= last;) {
        const int blockEnd = std::min(last, begin / blockRows * blockRows + blockRows - 1);
        const int bandEnd = std::min(last, begin / bandRows * bandRows + bandRows - 1);
        if (isHidden(openInBlock, begin / blockRows, begin, blockEnd)) {
            begin = blockEnd + 1;
            continue;
        }
        if (!isHidden(openInBand, begin / bandRows, begin, bandEnd))
            addRows(begin, bandEnd);
        begin = bandEnd + 1;
    }
    ++work;
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
    if (!(begin < end))
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
    for (unsigned i = firstByte + 1; i < lastByte; ++i)
        line[i] = 0xFF;
    line[lastByte] = static_cast<std::uint8_t>(line[lastByte] | tail);
}

void MaskRaster::lookForFilledParts() {
    work = 0;
    const std::size_t openBefore = openColumns;
    openColumns = 0;
    const auto stride = static_cast<std::size_t>(columns);
    std::vector<std::uint16_t> missing(stride);
    for (int band = 0; band < bands; ++band) {
        std::int32_t* next = openInBand.data() + static_cast<std::size_t>(band) * stride;
        if (next[0] == columns)
            continue;
        const int end = std::min((band + 1) * bandRows, rows * down);
        std::fill(missing.begin(), missing.end(), std::uint16_t{0});
        for (int row = band * bandRows; row < end; ++row) {
            const std::uint8_t* line = mask.data() + static_cast<std::size_t>(row) * stride;
            for (std::size_t i = 0; i < stride; ++i)
                missing[i] = static_cast<std::uint16_t>(missing[i] + missingPoints(line[i]));
        }
        std::int32_t open = columns;
        for (std::int32_t i = columns - 1; i >= 0; --i) {
            if (missing[static_cast<std::size_t>(i)] > mostMissing) {
                open = i;
                ++openColumns;
            } else if (next[i] == i) {
                for (int row = band * bandRows; row < end; ++row)
                    mask[static_cast<std::size_t>(row) * stride + static_cast<std::size_t>(i)] =
                        0xFF;
            }
            next[i] = open;
        }
    }
    for (int block = 0; block * bandsPerBlock < bands; ++block) {
        std::int32_t* next = openInBlock.data() + static_cast<std::size_t>(block) * stride;
        const std::int32_t* first =
            openInBand.data() + static_cast<std::size_t>(block * bandsPerBlock) * stride;
        std::copy(first, first + stride, next);
        for (int band = block * bandsPerBlock + 1;
             band < std::min(bands, block * bandsPerBlock + bandsPerBlock); ++band) {
            const std::int32_t* other = openInBand.data() + static_cast<std::size_t>(band) * stride;
            for (std::size_t i = 0; i < stride; ++i)
                next[i] = std::min(next[i], other[i]);
        }
    }
    // Where looking found nothing, look less often.
    if (openColumns == openBefore)
        patience *= 2;
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
