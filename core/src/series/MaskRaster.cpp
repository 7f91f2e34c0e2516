// SPDX-License-Identifier: MIT
#include "MaskRaster.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace zembra {

namespace {

constexpr int across = pointsAcross;
constexpr int down = pointsDown;
constexpr int bandRows = FilledParts::bandRows;
// Thinner strokes would slip through between the points; they are drawn fainter instead.
constexpr double thinnest = 0.5;

// Farther than any canvas.
constexpr double unreached = 1e9;

struct Range {
    double low;
    double high;
};

Range ordered(double a, double b) {
    return a < b ? Range{a, b} : Range{b, a};
}

// As many points in a row of them are set by one look at memory.
constexpr unsigned few = 8 * sizeof(std::uint64_t) - across;

void fillFew(std::uint8_t* line, unsigned first, unsigned count) {
    std::uint8_t* place = line + first / across;
    std::uint64_t added = ((std::uint64_t{1} << count) - 1) << (first % across);
    // Points go from the lowest bit of the first byte to the highest of the last.
    if constexpr (std::endian::native == std::endian::little) {
        std::uint64_t points = 0;
        std::memcpy(&points, place, sizeof points);
        points |= added;
        std::memcpy(place, &points, sizeof points);
    } else {
        for (; added != 0; added >>= across, ++place)
            *place = static_cast<std::uint8_t>(*place | added);
    }
}

// The pixels that show that many points.
using Shades = std::array<std::uint32_t, across * down + 1>;

// Some pixels of a row. Most of a picture of a few curves is blank.
void shade(const std::uint8_t* points, std::size_t stride, const Shades& shades,
           std::uint8_t* pixels, std::size_t count) {
    std::array<std::uint8_t, maskTogether> any{};
    for (std::size_t i = 0; i < any.size(); ++i)
        any[i] = points[i] | points[i + stride] | points[i + 2 * stride] | points[i + 3 * stride];
    static constexpr std::array<std::uint8_t, maskTogether> blank{};
    if (std::memcmp(any.data(), blank.data(), count) == 0) {
        std::memset(pixels, 0, 4 * count);
        return;
    }
    std::array<std::uint8_t, maskTogether> missing{};
    for (std::size_t i = 0; i < missing.size(); ++i)
        missing[i] = static_cast<std::uint8_t>(
            missingPoints(points[i]) + missingPoints(points[i + stride]) +
            missingPoints(points[i + 2 * stride]) + missingPoints(points[i + 3 * stride]));
    for (std::size_t i = 0; i < count; ++i)
        std::memcpy(pixels + 4 * i, &shades[across * down - missing[i]], 4);
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
    mask.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows * down) +
                    maskTogether,
                0);
    filled.begin(left, top, columns, rows);
    least = {unreached, unreached};
    greatest = {-unreached, -unreached};
}

void MaskRaster::add(std::span<const Point> piece) {
    for (const Point& p : piece) {
        least = {std::min(least.x, p.x), std::min(least.y, p.y)};
        greatest = {std::max(greatest.x, p.x), std::max(greatest.y, p.y)};
    }
    // What lies deep enough in the core is hidden with its joins and ends.
    const double margin = 1.5 * half;
    if (piece.size() == 1)
        addSegment({piece[0].x - half, piece[0].y}, {piece[0].x + half, piece[0].y});
    for (std::size_t i = 1; i < piece.size() && !filled.isAll(); ++i) {
        Point a = piece[i - 1];
        Point b = piece[i];
        if (filled.core().grown(-margin).contains(a) && filled.core().grown(-margin).contains(b))
            continue;
        const double length = distance(a, b);
        if (!(length > 0.0))
            continue;
        const Point along{(b.x - a.x) / length * half, (b.y - a.y) / length * half};
        if (i + 1 < piece.size()) {
            const Point& c = piece[i + 1];
            const double next = distance(b, c);
            if (next > 0.0 && !filled.hides({b.x - half, b.y - half, 2.0 * half, 2.0 * half})) {
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
        filled.look(mask);
    }
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
        filled.passBy(end - begin + 1);
        int row = begin;
        for (; row <= end && row < innerFirst; ++row)
            addRow(row);
        const int stop = std::min(end, innerLast) + 1;
        if (row < stop) {
            fillStripe(row, stop, middleAt(row), slope / down, width);
            row = stop;
        }
        for (; row <= end; ++row)
            addRow(row);
    };
    const auto addBands = [&](int from, int to) {
        int open = from;
        for (int begin = from; begin <= to;) {
            const int end = std::min(to, begin / bandRows * bandRows + bandRows - 1);
            const auto [low, high] = ordered(middleAt(begin), middleAt(end));
            if (filled.hides(begin / bandRows, std::max(low - width, west),
                             std::min(high + width, east))) {
                if (open < begin)
                    addRows(open, begin - 1);
                open = end + 1;
            }
            begin = end + 1;
        }
        if (open <= to)
            addRows(open, to);
    };
    // The rows where the stripe along the segment lies within the core.
    const Rect& core = filled.core();
    double hiddenLow = core.top();
    double hiddenHigh = core.bottom();
    const double coreLeft = core.left() + width;
    const double coreRight = core.right() - width;
    if (std::abs(slope) > 1e-9) {
        const auto [from, to] =
            ordered(a.y + (coreLeft - a.x) / slope, a.y + (coreRight - a.x) / slope);
        hiddenLow = std::max(hiddenLow, from);
        hiddenHigh = std::min(hiddenHigh, to);
    }
    const bool passes = coreLeft < coreRight && hiddenLow < hiddenHigh &&
                        (std::abs(slope) > 1e-9 || (a.x > coreLeft && a.x < coreRight));
    const int hiddenFirst = passes ? std::max(first, rowFrom(hiddenLow)) : last + 1;
    const int hiddenEnd = passes ? rowFrom(hiddenHigh) : last + 1;
    addBands(first, std::min(hiddenFirst - 1, last));
    addBands(std::max(hiddenFirst, hiddenEnd), last);
    filled.passBy(1);
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

// Rows of a stripe that goes on by `step` from one to the next.
void MaskRaster::fillStripe(int begin, int end, double middle, double step, double width) {
    // In fractions of a point, counted in whole numbers.
    constexpr double unit = 4294967296.0;
    constexpr int shift = 32;
    const auto counted = [](double points) { return static_cast<std::int64_t>(points * unit); };
    const std::int64_t stride = counted(step * across);
    const double most = columns * across + 1.0;
    const double low = (middle - width - left) * across + 0.5;
    const double high = (middle + width - left) * across + 0.5;
    const double way = step * across * (end - begin);
    // What may lie beside the picture takes the careful way.
    if (!(std::min(low, low + way) >= 0.0 && std::max(high, high + way) < most)) {
        for (int row = begin; row < end; ++row, middle += step)
            fill(row, middle - width, middle + width);
        return;
    }
    std::int64_t from = counted(low);
    std::int64_t to = counted(high);
    if (high - low >= few - 1.0) {
        for (int row = begin; row < end; ++row, from += stride, to += stride)
            fillPoints(row, static_cast<unsigned>(from >> shift),
                       static_cast<unsigned>(to >> shift));
        return;
    }
    std::uint8_t* line =
        mask.data() + static_cast<std::size_t>(begin) * static_cast<std::size_t>(columns);
    for (int row = begin; row < end; ++row, from += stride, to += stride, line += columns) {
        const auto first = static_cast<unsigned>(from >> shift);
        fillFew(line, first, static_cast<unsigned>(to >> shift) - first);
    }
}

void MaskRaster::fill(int row, double from, double to) {
    // Points lie in the middles of the eighths of a pixel.
    const double begin = std::max((from - left) * across + 0.5, 0.0);
    const double end = std::min((to - left) * across + 0.5, static_cast<double>(columns * across));
    if (begin < end)
        fillPoints(row, static_cast<unsigned>(begin), static_cast<unsigned>(end));
}

void MaskRaster::fillPoints(int row, unsigned first, unsigned end) {
    if (first >= end)
        return;
    std::uint8_t* line =
        mask.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(columns);
    if (end - first <= few) {
        fillFew(line, first, end - first);
        return;
    }
    const unsigned firstByte = first / across;
    const unsigned lastByte = (end - 1) / across;
    const auto head = static_cast<std::uint8_t>(0xFFu << (first % across));
    const auto tail = static_cast<std::uint8_t>(0xFFu >> (across - 1 - (end - 1) % across));
    if (firstByte == lastByte) {
        line[firstByte] = static_cast<std::uint8_t>(line[firstByte] | (head & tail));
        return;
    }
    line[firstByte] = static_cast<std::uint8_t>(line[firstByte] | head);
    for (unsigned i = firstByte + 1; i < lastByte; ++i)
        line[i] = 0xFF;
    line[lastByte] = static_cast<std::uint8_t>(line[lastByte] | tail);
}

// The whole pixels of the picture that the path can have reached.
MaskRaster::Box MaskRaster::drawnBox() const {
    const auto pixel = [](double place, int from, int count) {
        return static_cast<int>(std::clamp(place - from, 0.0, static_cast<double>(count)));
    };
    const double reach = 1.5 * half;
    return {pixel(std::floor(least.x - reach), left, columns),
            pixel(std::floor(least.y - reach), top, rows),
            pixel(std::ceil(greatest.x + reach), left, columns),
            pixel(std::ceil(greatest.y + reach), top, rows)};
}

Picture MaskRaster::finish(const Color& color) {
    Picture picture;
    const Box box = drawnBox();
    if (box.left >= box.right || box.top >= box.bottom)
        return picture;
    picture.width = box.right - box.left;
    picture.height = box.bottom - box.top;
    picture.x = left + box.left;
    picture.y = top + box.top;
    const auto stride = static_cast<std::size_t>(columns);
    const auto width = static_cast<std::size_t>(picture.width);
    picture.buffer = takePictureBuffer(width * static_cast<std::size_t>(picture.height) * 4);
    Shades shades{};
    for (std::size_t hits = 0; hits < shades.size(); ++hits) {
        const double share = static_cast<double>(hits) / (across * down);
        shades[hits] = packedPixel(
            color, static_cast<unsigned>(std::lround(color.alpha() * strength * share)));
    }
    for (int row = box.top; row < box.bottom; ++row) {
        const std::uint8_t* points = mask.data() + static_cast<std::size_t>(row * down) * stride +
                                     static_cast<std::size_t>(box.left);
        std::uint8_t* pixels =
            picture.buffer.pixels + static_cast<std::size_t>(row - box.top) * width * 4;
        for (std::size_t first = 0; first < width; first += maskTogether) {
            const std::size_t count = std::min<std::size_t>(maskTogether, width - first);
            shade(points + first, stride, shades, pixels + 4 * first, count);
        }
    }
    return picture;
}

} // namespace zembra
