// SPDX-License-Identifier: MIT
#include "MaskRaster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace zembra {

namespace {

constexpr int across = PointMask::across;
constexpr int down = PointMask::down;
constexpr int bandRows = PointMask::tileRows;
// What a segment costs beside its rows, in rows.
constexpr int ownCost = 64;
// Thinner strokes would slip through between the points; they are drawn fainter instead.
constexpr double thinnest = 0.5;

// Farther than any canvas.
constexpr double unreached = 1e9;

double distance(const Point& a, const Point& b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}

// What a row of points costs that is so wide, in narrow ones: each further word lies elsewhere in
// memory.
int rowCost(double width, int columns) {
    const double pixels = std::min(width, static_cast<double>(columns));
    return 1 + static_cast<int>(pixels / PointMask::tileSide);
}

// The pixels that show that many points.
using Shades = std::array<std::uint32_t, across * down + 1>;

// A row of the pixels of a tile, from one to before another. Most of a picture of a few curves is
// blank.
void shade(const PointMask::Word* points, const Shades& shades, std::uint8_t* pixels, int first,
           int end) {
    const PointMask::Word any = points[0] | points[1] | points[2] | points[3];
    if (any == 0) {
        std::memset(pixels, 0, 4 * static_cast<std::size_t>(end - first));
        return;
    }
    PointMask::Word missing = 0;
    for (int row = 0; row < down; ++row)
        missing += missingPoints(points[row]);
    missing >>= first * across;
    for (int i = first; i < end; ++i, missing >>= across, pixels += 4)
        std::memcpy(pixels, &shades[Shades().size() - 1 - (missing & 0xFF)], 4);
}

} // namespace

void MaskRaster::begin(const Rect& area, double penWidth) {
    left = static_cast<int>(std::floor(area.left()));
    top = static_cast<int>(std::floor(area.top()));
    const int columns = std::max(0, static_cast<int>(std::ceil(area.right())) - left);
    const int rows = std::max(0, static_cast<int>(std::ceil(area.bottom())) - top);
    half = 0.5 * std::max(penWidth, thinnest);
    strength = std::min(penWidth / thinnest, 1.0);
    mask.begin(columns, rows);
    filled.begin(mask);
    least = {unreached, unreached};
    greatest = {-unreached, -unreached};
}

void MaskRaster::add(std::span<const Point> piece) {
    if (piece.empty())
        return;
    if (piece.size() == 1) {
        const Point p = placed(piece.front());
        reach(p);
        addStroke({{p.x - half, p.y}, {p.x + half, p.y}, half});
    }
    // What lies deep enough in the core is hidden with its joins and ends.
    const double margin = 1.5 * half;
    Rect deep = filled.core().grown(-margin);
    bool hidden = deep.contains(placed(piece.front()));
    for (std::size_t i = 1; i < piece.size() && !filled.isAll(); ++i) {
        const bool wasHidden = hidden;
        hidden = deep.contains(placed(piece[i]));
        if (hidden && wasHidden)
            continue;
        addSegment(piece, i);
        if (!hidden && i + 1 < piece.size())
            addJoin(placed(piece[i - 1]), placed(piece[i]), placed(piece[i + 1]));
        filled.look(mask);
        deep = filled.core().grown(-margin);
    }
}

// The segment that ends at a point of a piece.
void MaskRaster::addSegment(std::span<const Point> piece, std::size_t end) {
    Point a = placed(piece[end - 1]);
    Point b = placed(piece[end]);
    const double length = distance(a, b);
    if (!(length > 0.0))
        return;
    reach(a);
    reach(b);
    const Point along{(b.x - a.x) / length * half, (b.y - a.y) / length * half};
    if (end == 1)
        a = {a.x - along.x, a.y - along.y};
    if (end + 1 == piece.size())
        b = {b.x + along.x, b.y + along.y};
    addStroke({a, b, half});
}

// The wedge where a path turns at `b`; on the inner side the segments cover each other.
void MaskRaster::addJoin(const Point& a, const Point& b, const Point& c) {
    if (filled.hides({b.x - half, b.y - half, 2.0 * half, 2.0 * half}))
        return;
    const double in = distance(a, b);
    const double out = distance(b, c);
    if (!(in > 0.0 && out > 0.0))
        return;
    const Point n{-(b.y - a.y) / in * half, (b.x - a.x) / in * half};
    const Point m{-(c.y - b.y) / out * half, (c.x - b.x) / out * half};
    // Nearly straight joins leave no wedge that a point could fall into.
    if (n.x * m.x + n.y * m.y >= 0.95 * half * half)
        return;
    const bool turnsToN = n.x * (c.x - b.x) + n.y * (c.y - b.y) > 0.0;
    const bool isInnerCovered = in > half || out > half;
    if (!turnsToN || !isInnerCovered)
        addTriangle(b, {b.x + n.x, b.y + n.y}, {b.x + m.x, b.y + m.y});
    if (turnsToN || !isInnerCovered)
        addTriangle(b, {b.x - n.x, b.y - n.y}, {b.x - m.x, b.y - m.y});
}

void MaskRaster::addStroke(const SegmentStroke& segment) {
    const int first = std::max(0, segment.first);
    const int last = std::min(mask.pointRows() - 1, segment.last);
    if (first > last)
        return;
    const auto hidden = segment.rowsWithin(filled.core());
    if (hidden.first < hidden.end) {
        addBands(segment, first, std::min(hidden.first - 1, last));
        addBands(segment, std::max(first, hidden.end), last);
    } else {
        addBands(segment, first, last);
    }
    filled.passBy(ownCost);
}

// Rows of points, without the bands where all that it reaches is full.
void MaskRaster::addBands(const SegmentStroke& segment, int from, int to) {
    int open = from;
    for (int begin = from; begin <= to;) {
        const int end = std::min(to, begin / bandRows * bandRows + bandRows - 1);
        const auto [low, high] = ordered(segment.middleAt(begin), segment.middleAt(end));
        if (filled.hides(begin / bandRows, std::max(low - segment.width, segment.west),
                         std::min(high + segment.width, segment.east))) {
            if (open < begin)
                addRows(segment, open, begin);
            open = end + 1;
        }
        begin = end + 1;
    }
    if (open <= to)
        addRows(segment, open, to + 1);
}

void MaskRaster::addRows(const SegmentStroke& segment, int begin, int end) {
    const double width = std::min(2.0 * segment.width, segment.east - segment.west);
    filled.passBy((end - begin) * rowCost(width, mask.columns()));
    const auto addRow = [&](int row) {
        const double middle = segment.middleAt(row);
        const Range ends = segment.endsAt(row);
        fill(row, std::max(middle - segment.width, ends.low),
             std::min(middle + segment.width, ends.high));
    };
    int row = begin;
    for (; row < end && row < segment.innerFirst; ++row)
        addRow(row);
    const int stop = std::min(end, segment.innerLast + 1);
    if (row < stop) {
        fillStripe(row, stop, segment.middleAt(row), segment.slope / down, segment.width);
        row = stop;
    }
    for (; row < end; ++row)
        addRow(row);
}

void MaskRaster::addTriangle(const Point& a, const Point& b, const Point& c) {
    const Triangle corners{a, b, c};
    const Range across = ordered(std::min({a.x, b.x, c.x}), std::max({a.x, b.x, c.x}));
    const int first = std::max(0, PointMask::rowFrom(std::min({a.y, b.y, c.y})));
    const int end = std::min(mask.pointRows(), PointMask::rowFrom(std::max({a.y, b.y, c.y})));
    for (int row = first; row < end;) {
        const int stop = std::min(end, row / bandRows * bandRows + bandRows);
        if (!filled.hides(row / bandRows, across.low, across.high)) {
            filled.passBy((stop - row) * rowCost(across.high - across.low, mask.columns()));
            addRows(corners, row, stop);
        }
        row = stop;
    }
}

void MaskRaster::addRows(const Triangle& corners, int begin, int end) {
    for (int row = begin; row < end; ++row) {
        const double y = PointMask::middleOf(row);
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
    using Place = StripePattern::Place;
    constexpr int shift = StripePattern::fractionBits;
    const auto placeOf = [](double point) {
        return static_cast<Place>(point * static_cast<double>(Place{1} << shift));
    };
    const double most = mask.columns() * across - 1.0;
    const double low = (middle - width) * across + 0.5;
    const double high = (middle + width) * across + 0.5;
    const double way = step * across * (end - begin);
    // What may lie beside the picture takes the careful way.
    if (!(std::min(low, low + way) > 1.0 && std::max(high, high + way) < most)) {
        for (int row = begin; row < end; ++row, middle += step)
            fill(row, middle - width, middle + width);
        return;
    }
    const Place stride = placeOf(step * across);
    const Place reach = placeOf(high - low);
    Place from = placeOf(low);
    // Fewer rows are not worth a pattern.
    int together = 0;
    if (end - begin >= bandRows) {
        pattern.assign(stride, reach);
        together = pattern.rows();
    }
    for (int row = begin; row < end;) {
        PointMask::Word* words = mask.row(row);
        const int stop = std::min(end, (row / bandRows + 1) * bandRows);
        const auto fillTo = [&](int other) {
            for (; row < other; ++row, ++words, from += stride)
                PointMask::fill(words, static_cast<unsigned>(from >> shift),
                                static_cast<unsigned>((from + reach) >> shift));
        };
        if (together > 0) {
            // To where a pattern fills whole lines of the cache; it has a power of two of rows.
            fillTo(std::min(stop, (row + together - 1) & -together));
            for (; row + together <= stop; row += together, words += together) {
                pattern.fill(words, from);
                from += together * stride;
            }
        }
        fillTo(stop);
    }
}

void MaskRaster::fill(int row, double from, double to) {
    // Points lie in the middles of the eighths of a pixel.
    const double begin = std::max(from * across + 0.5, 0.0);
    const double end = std::min(to * across + 0.5, static_cast<double>(mask.columns() * across));
    if (begin < end)
        PointMask::fill(mask.row(row), static_cast<unsigned>(begin), static_cast<unsigned>(end));
}

void MaskRaster::reach(const Point& p) {
    least = {std::min(least.x, p.x), std::min(least.y, p.y)};
    greatest = {std::max(greatest.x, p.x), std::max(greatest.y, p.y)};
}

// The whole pixels of the picture that the path can have reached.
MaskRaster::Box MaskRaster::drawnBox() const {
    const auto pixel = [](double place, int count) {
        return static_cast<int>(std::clamp(place, 0.0, static_cast<double>(count)));
    };
    const double margin = 1.5 * half;
    return {pixel(std::floor(least.x - margin), mask.columns()),
            pixel(std::floor(least.y - margin), mask.rows()),
            pixel(std::ceil(greatest.x + margin), mask.columns()),
            pixel(std::ceil(greatest.y + margin), mask.rows())};
}

Picture MaskRaster::finish(const Color& color) {
    constexpr int side = PointMask::tileSide;
    Picture picture;
    const Box box = drawnBox();
    if (box.left >= box.right || box.top >= box.bottom)
        return picture;
    picture.width = box.right - box.left;
    picture.height = box.bottom - box.top;
    picture.x = left + box.left;
    picture.y = top + box.top;
    picture.buffer = takePictureBuffer(static_cast<std::size_t>(picture.width) *
                                       static_cast<std::size_t>(picture.height) * 4);
    Shades shades{};
    for (std::size_t hits = 0; hits < shades.size(); ++hits) {
        const double share = static_cast<double>(hits) / (across * down);
        shades[hits] = packedPixel(
            color, static_cast<unsigned>(std::lround(color.alpha() * strength * share)));
    }
    std::uint8_t* pixels = picture.buffer.pixels;
    for (int row = box.top; row < box.bottom; ++row) {
        for (int first = box.left; first < box.right;) {
            const int column = first / side;
            const int end = std::min(box.right, column * side + side);
            shade(mask.tile(column, row / side) + std::ptrdiff_t{row % side} * down, shades, pixels,
                  first - column * side, end - column * side);
            pixels += 4 * static_cast<std::size_t>(end - first);
            first = end;
        }
    }
    return picture;
}

} // namespace zembra
