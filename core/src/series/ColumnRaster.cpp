// SPDX-License-Identifier: MIT
#include "ColumnRaster.h"

#include "data/Lanes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zembra {

namespace {

constexpr int stripsPerColumn = 16;
// Columns filled together, so that a row of them is a line of the processor's cache.
constexpr int tileColumns = 16;
constexpr float nothing = 1e9f;
// Once edges have passed each strip so many times, those of more strips than this are kept in a
// tree, where each takes as long as some hundred strips do.
constexpr int patienceOfStrip = 64;
constexpr int longEdge = 512;
// Thinner strokes are drawn as wide as this, and fainter.
constexpr double thinnest = 0.5;

float lesser(float a, float b) {
    return a < b ? a : b;
}

float greater(float a, float b) {
    return a > b ? a : b;
}

enum class Extreme { Least, Greatest };

// Replaces each value by the extreme of it and the `window - 1` that follow, from which one more
// pass makes any window.
template <Extreme extreme>
void slide(std::vector<float>& values, std::vector<float>& scratch, std::size_t window) {
    using Values = Lanes<float>;
    std::size_t reached = 1;
    while (reached < window) {
        const std::size_t stride = std::min(reached, window - reached);
        scratch.resize(values.size());
        const std::size_t end = values.size() - std::min(stride, values.size());
        std::size_t i = 0;
        for (; i + Values::size <= end; i += Values::size) {
            Values best = Values::load(values.data() + i);
            const Values other = Values::load(values.data() + i + stride);
            if constexpr (extreme == Extreme::Least)
                best.lower(other);
            else
                best.raise(other);
            best.store(scratch.data() + i);
        }
        for (; i < end; ++i)
            scratch[i] = extreme == Extreme::Least ? lesser(values[i], values[i + stride])
                                                   : greater(values[i], values[i + stride]);
        std::copy(values.begin() + static_cast<std::ptrdiff_t>(end), values.end(),
                  scratch.begin() + static_cast<std::ptrdiff_t>(end));
        values.swap(scratch);
        reached += stride;
    }
}

} // namespace

void ColumnRaster::begin(const Rect& area, double penWidth) {
    left = static_cast<int>(std::floor(area.left()));
    top = static_cast<int>(std::floor(area.top()));
    columns = std::max(0, static_cast<int>(std::ceil(area.right())) - left);
    rows = std::max(0, static_cast<int>(std::ceil(area.bottom())) - top);
    half = 0.5 * std::max(penWidth, thinnest);
    strength = std::min(penWidth / thinnest, 1.0);
    strips = columns * stripsPerColumn;
    pieces = 0;
    // Steep parts beside the picture still reach into it by half the pen.
    reach = static_cast<int>(std::ceil(half * stripsPerColumn));
}

// The layer of the next piece.
ColumnRaster::Layer& ColumnRaster::nextLayer() {
    Layer& layer = layers[pieces % layers.size()];
    if (pieces++ < layers.size()) {
        const auto lines = static_cast<std::size_t>(strips + 2 * reach + 1);
        layer.low.assign(static_cast<std::size_t>(strips), nothing);
        layer.high.assign(static_cast<std::size_t>(strips), -nothing);
        layer.steepLow.assign(lines, nothing);
        layer.steepHigh.assign(lines, -nothing);
        layer.patience = std::int64_t{patienceOfStrip} * strips;
        layer.hasLongEdges = false;
    }
    return layer;
}

std::span<const ColumnRaster::Layer> ColumnRaster::usedLayers() const {
    return std::span(layers).first(std::min(pieces, layers.size()));
}

void ColumnRaster::add(std::span<const Point> piece) {
    if (piece.empty())
        return;
    Layer& layer = nextLayer();
    if (piece.size() == 1) {
        addFlat(layer, {piece[0].x - half, piece[0].y}, {piece[0].x + half, piece[0].y});
        return;
    }
    const auto end = [this](const Point& at, const Point& from) {
        const double dx = at.x - from.x;
        const double dy = at.y - from.y;
        const double length = std::sqrt(dx * dx + dy * dy);
        return length > 0.0 ? Point{at.x + dx / length * half, at.y + dy / length * half} : at;
    };
    const double shift = reach - static_cast<double>(left) * stripsPerColumn;
    const auto placeOf = [&](const Point& p) {
        return Place{p.x * stripsPerColumn + shift, static_cast<float>(p.y - top)};
    };
    Point a = end(piece[0], piece[1]);
    Place from = placeOf(a);
    bool wasSteep = true;
    for (std::size_t i = 1; i < piece.size(); ++i) {
        const Point b = i + 1 == piece.size() ? end(piece[i], piece[i - 1]) : piece[i];
        const Place to = placeOf(b);
        const bool steep = isSteep(from, to);
        if (!steep)
            addFlat(layer, a, b);
        else if (from.line <= to.line)
            addSteep(layer, from, to);
        else
            addSteep(layer, to, from);
        if (i > 1 && !(steep && wasSteep))
            addJoin(layer, piece[i - 2], a, b);
        wasSteep = steep;
        a = b;
        from = to;
    }
}

// Whether the stroke of a segment is as good as its path, widened sideways by the pen.
bool ColumnRaster::isSteep(const Place& a, const Place& b) {
    constexpr double steepness = 6.0;
    const double lines = std::abs(b.line - a.line);
    return lines <= 1.0 || std::abs(b.y - a.y) * stripsPerColumn > steepness * lines;
}

// The bevel where two segments meet: an edge on either side, of which one is already covered.
void ColumnRaster::addJoin(Layer& layer, const Point& a, const Point& b, const Point& c) {
    const double abx = b.x - a.x, aby = b.y - a.y;
    const double bcx = c.x - b.x, bcy = c.y - b.y;
    const double ab = std::sqrt(abx * abx + aby * aby);
    const double bc = std::sqrt(bcx * bcx + bcy * bcy);
    if (ab == 0.0 || bc == 0.0)
        return;
    const Point n{-aby / ab * half, abx / ab * half};
    const Point m{-bcy / bc * half, bcx / bc * half};
    addEdge(layer, {b.x + n.x, b.y + n.y}, {b.x + m.x, b.y + m.y});
    addEdge(layer, {b.x - n.x, b.y - n.y}, {b.x - m.x, b.y - m.y});
}

void ColumnRaster::addFlat(Layer& layer, const Point& a, const Point& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    const Point n{-dy / length * half, dx / length * half};
    const Point a1{a.x + n.x, a.y + n.y}, a2{a.x - n.x, a.y - n.y};
    const Point b1{b.x + n.x, b.y + n.y}, b2{b.x - n.x, b.y - n.y};
    addEdge(layer, a1, b1);
    addEdge(layer, a2, b2);
    addEdge(layer, a1, a2);
    addEdge(layer, b1, b2);
}

void ColumnRaster::addEdge(Layer& layer, Point a, Point b) {
    if (a.x > b.x)
        std::swap(a, b);
    const double u1 = (a.x - left) * stripsPerColumn - 0.5;
    const double u2 = (b.x - left) * stripsPerColumn - 0.5;
    const int first = static_cast<int>(std::ceil(std::max(u1, 0.0)));
    const int last = static_cast<int>(std::floor(std::min(u2, strips - 1.0)));
    if (first > last)
        return;
    const double slope = (b.y - a.y) / (u2 - u1);
    const double y = a.y - top + (first - u1) * slope;
    layer.patience -= last - first;
    if (layer.patience >= 0 || last - first < longEdge)
        addStrips(layer, first, last, y, slope);
    else
        addLongEdge(layer, first, last, {y - first * slope, slope});
}

void ColumnRaster::addLongEdge(Layer& layer, int first, int last, const LowerEnvelope::Line& edge) {
    if (!layer.hasLongEdges) {
        layer.lowEdges.begin(strips);
        layer.highEdges.begin(strips);
        layer.hasLongEdges = true;
    }
    layer.lowEdges.add(first, last, edge);
    layer.highEdges.add(first, last, {-edge.start, -edge.slope});
}

void ColumnRaster::addStrips(Layer& layer, int first, int last, double y, double slope) {
    for (int i = first; i <= last; ++i, y += slope) {
        const auto s = static_cast<std::size_t>(i);
        layer.low[s] = lesser(layer.low[s], static_cast<float>(y));
        layer.high[s] = greater(layer.high[s], static_cast<float>(y));
    }
}

// `a` lies left of `b`.
void ColumnRaster::addSteep(Layer& layer, const Place& a, const Place& b) {
    const double limit = static_cast<double>(strips + 2 * reach);
    if (!(b.line >= 0.0 && a.line <= limit))
        return;
    // Each line takes the part of the segment that is nearer to it than to its neighbours.
    const auto include = [&layer](int line, float from, float to) {
        const auto s = static_cast<std::size_t>(line);
        layer.steepLow[s] = lesser(layer.steepLow[s], lesser(from, to));
        layer.steepHigh[s] = greater(layer.steepHigh[s], greater(from, to));
    };
    const int first = static_cast<int>(std::max(a.line, 0.0) + 0.5);
    const int last = static_cast<int>(std::min(b.line, limit) + 0.5);
    float y = a.y;
    if (first < last) {
        const float slope = (b.y - a.y) / static_cast<float>(b.line - a.line);
        float next = a.y + static_cast<float>(first + 0.5 - a.line) * slope;
        for (int i = first; i < last; ++i, next += slope) {
            include(i, y, next);
            y = next;
        }
    }
    include(last, y, b.y);
}

void ColumnRaster::settleLongEdges(Layer& layer) {
    if (!layer.hasLongEdges)
        return;
    layer.lowEdges.forEach([&](int first, int last, const LowerEnvelope::Line& edge) {
        addStrips(layer, first, last, edge.at(first), edge.slope);
    });
    layer.highEdges.forEach([&](int first, int last, const LowerEnvelope::Line& edge) {
        addStrips(layer, first, last, -edge.at(first), -edge.slope);
    });
}

void ColumnRaster::widen(Layer& layer) {
    const std::size_t window = std::max<std::size_t>(
        1, static_cast<std::size_t>(std::round(2.0 * half * stripsPerColumn)));
    slide<Extreme::Least>(layer.steepLow, scratch, window);
    slide<Extreme::Greatest>(layer.steepHigh, scratch, window);
    // The strip after line i is met by the lines from i + 1 - window / 2 on; lines begin `reach`
    // before the picture.
    const std::size_t shift = static_cast<std::size_t>(reach) + 1 - (window + 1) / 2;
    const auto thickness = static_cast<float>(2.0 * half);
    for (std::size_t s = 0; s < layer.low.size(); ++s) {
        float low = layer.steepLow[s + shift];
        float high = layer.steepHigh[s + shift];
        if (low > high)
            continue;
        // Even where all turns are tiny, a line is as thick as its pen.
        const float lacking = thickness - (high - low);
        if (lacking > 0.0f) {
            low -= 0.5f * lacking;
            high += 0.5f * lacking;
        }
        layer.low[s] = lesser(layer.low[s], low);
        layer.high[s] = greater(layer.high[s], high);
    }
}

void ColumnRaster::settle() {
    for (std::size_t i = 0; i < usedLayers().size(); ++i) {
        settleLongEdges(layers[i]);
        widen(layers[i]);
    }
    tileCovers.clear();
    for (int tile = 0; tile < columns; tile += tileColumns)
        tileCovers.push_back(coverOf(tile, std::min(tile + tileColumns, columns)));
}

ColumnRaster::Cover ColumnRaster::coverOf(int first, int last) const {
    using Values = Lanes<float>;
    static_assert(stripsPerColumn % Values::size == 0);
    const auto begin = static_cast<std::size_t>(first * stripsPerColumn);
    const auto end = static_cast<std::size_t>(last * stripsPerColumn);
    Values low = Values::all(nothing);
    Values high = Values::all(-nothing);
    Values solidLow = high;
    Values solidHigh = low;
    for (const Layer& layer : usedLayers()) {
        for (std::size_t i = begin; i < end; i += Values::size) {
            low.lower(Values::load(layer.low.data() + i));
            high.raise(Values::load(layer.high.data() + i));
        }
    }
    for (std::size_t i = begin; pieces > 0 && i < end; i += Values::size) {
        solidLow.raise(Values::load(layers[0].low.data() + i));
        solidHigh.lower(Values::load(layers[0].high.data() + i));
    }
    const auto least = [](const Values& values) {
        std::array<float, Values::size> all;
        values.store(all.data());
        return *std::min_element(all.begin(), all.end());
    };
    const auto greatest = [](const Values& values) {
        std::array<float, Values::size> all;
        values.store(all.data());
        return *std::max_element(all.begin(), all.end());
    };
    return {least(low), greatest(high), greatest(solidLow), least(solidHigh)};
}

// What was drawn, within the picture.
ColumnRaster::Box ColumnRaster::drawnBox() const {
    const auto isDrawn = [](const Cover& cover) { return cover.low < cover.high; };
    const auto isColumnDrawn = [&](int column) { return isDrawn(coverOf(column, column + 1)); };
    float low = nothing;
    float high = -nothing;
    for (const Cover& cover : tileCovers) {
        low = lesser(low, cover.low);
        high = greater(high, cover.high);
    }
    const int top = static_cast<int>(std::floor(std::clamp(low, 0.0f, float(rows))));
    const int bottom = static_cast<int>(std::ceil(std::clamp(high, 0.0f, float(rows))));
    if (top >= bottom)
        return {};
    int first = 0;
    while (first < columns && !isDrawn(tileCovers[static_cast<std::size_t>(first / tileColumns)]))
        first += tileColumns;
    while (first < columns && !isColumnDrawn(first))
        ++first;
    int last = columns;
    while (last > first && !isColumnDrawn(last - 1))
        --last;
    if (first >= last)
        return {};
    return {first, top, last, bottom};
}

// The rows of a box that are covered from end to end.
ColumnRaster::Box ColumnRaster::solidRows(Box drawn) const {
    auto low = static_cast<float>(drawn.top);
    auto high = static_cast<float>(drawn.bottom);
    forEachTile(drawn, [&](const Box& tile, const Cover& known) {
        const bool whole = tile.left % tileColumns == 0 &&
                           (tile.right % tileColumns == 0 || tile.right == columns);
        const Cover cover = whole ? known : coverOf(tile.left, tile.right);
        low = greater(low, cover.solidLow);
        high = lesser(high, cover.solidHigh);
    });
    drawn.top = static_cast<int>(std::ceil(std::min(low, float(rows))));
    drawn.bottom = std::max(drawn.top, static_cast<int>(std::floor(std::max(high, 0.0f))));
    return drawn;
}

// Calls `use(tile, cover)` for the tiles of a box from left to right.
template <class Use>
void ColumnRaster::forEachTile(const Box& box, Use use) const {
    for (int left = box.left; left < box.right;) {
        const int index = left / tileColumns;
        const int right = std::min((index + 1) * tileColumns, box.right);
        use(Box{left, box.top, right, box.bottom}, tileCovers[static_cast<std::size_t>(index)]);
        left = right;
    }
}

Picture ColumnRaster::painted(const Box& box, const Color& color) {
    Picture picture;
    if (box.left >= box.right || box.top >= box.bottom)
        return picture;
    picture.width = box.right - box.left;
    picture.height = box.bottom - box.top;
    picture.x = left + box.left;
    picture.y = top + box.top;
    picture.buffer = takePictureBuffer(static_cast<std::size_t>(picture.width) *
                                       static_cast<std::size_t>(picture.height) * 4);
    forEachTile(box, [&](const Box& tile, const Cover& cover) {
        fillTile(tile, cover, color,
                 picture.buffer.pixels + static_cast<std::size_t>(tile.left - box.left) * 4,
                 picture.width);
    });
    return picture;
}

Picture ColumnRaster::finish(const Color& color) {
    settle();
    return painted(drawnBox(), color);
}

SlicedPicture ColumnRaster::finishSliced(const Color& color) {
    // From here on two more calls of the painter cost less than the pixels.
    constexpr double worthCutting = 100000.0;
    settle();
    SlicedPicture result;
    const Box drawn = drawnBox();
    const Box solid = solidRows(drawn);
    const Rect middle{double(left + solid.left), double(top + solid.top),
                      double(solid.right - solid.left), double(solid.bottom - solid.top)};
    if (color.alpha() < 255 || strength < 1.0 || middle.width * middle.height < worthCutting) {
        result.upper = painted(drawn, color);
        return result;
    }
    result.middle = middle;
    if (drawn.top < solid.top)
        result.upper = painted({drawn.left, drawn.top, drawn.right, solid.top + 1}, color);
    if (solid.bottom < drawn.bottom)
        result.lower = painted({drawn.left, solid.bottom - 1, drawn.right, drawn.bottom}, color);
    return result;
}

void ColumnRaster::fillTile(const Box& tile, const Cover& cover, const Color& color,
                            std::uint8_t* pixels, int stride) {
    const auto lineBytes = static_cast<std::size_t>(tile.right - tile.left) * 4;
    const auto lineAt = [&](int row) {
        return pixels +
               static_cast<std::size_t>(row - tile.top) * static_cast<std::size_t>(stride) * 4;
    };
    const auto low = std::clamp(cover.low, float(tile.top), float(tile.bottom));
    const auto high = std::clamp(cover.high, float(tile.top), float(tile.bottom));
    Box drawn = tile;
    drawn.top = static_cast<int>(std::floor(low));
    drawn.bottom = std::max(drawn.top, static_cast<int>(std::ceil(high)));
    for (int row = tile.top; row < drawn.top; ++row)
        std::memset(lineAt(row), 0, lineBytes);
    for (int row = drawn.bottom; row < tile.bottom; ++row)
        std::memset(lineAt(row), 0, lineBytes);
    fillRows(drawn, color, lineAt(drawn.top), stride);
}

void ColumnRaster::fillRows(const Box& tile, const Color& color, std::uint8_t* pixels, int stride) {
    const int height = tile.bottom - tile.top;
    const int count = tile.right - tile.left;
    // Each interval leaves its ends in the first derivative of the cover along y; summing them up
    // from top to bottom gives the cover.
    tileCover.assign(static_cast<std::size_t>(height + 2) * tileColumns, 0.0f);
    const auto limit = static_cast<float>(height);
    const auto offset = static_cast<float>(tile.top);
    std::array<float, tileColumns> fromTop{};
    const auto mark = [this](int column, float y, float sign) {
        const int row = static_cast<int>(y);
        const float share = sign * (y - static_cast<float>(row));
        float* cell = tileCover.data() + static_cast<std::ptrdiff_t>(row) * tileColumns + column;
        cell[0] += sign - share;
        cell[tileColumns] += share;
    };
    // What reaches beyond the tile has no end there to be marked.
    const auto cover = [&](int column, float low, float high) {
        low -= offset;
        high -= offset;
        if (!(low < high && low < limit && high > 0.0f))
            return;
        if (low > 0.0f)
            mark(column, low, 1.0f);
        else
            fromTop[static_cast<std::size_t>(column)] += 1.0f;
        if (high < limit)
            mark(column, high, -1.0f);
    };
    // Strips of one column end in the same cells, and each would have to wait for the one before:
    // columns take turns.
    for (int strip = 0; strip < stripsPerColumn; ++strip) {
        for (int column = 0; column < count; ++column) {
            const auto s = static_cast<std::size_t>((tile.left + column) * stripsPerColumn + strip);
            const Strip a{layers[0].low[s], layers[0].high[s]};
            if (pieces < 2) {
                cover(column, a.low, a.high);
                continue;
            }
            const Strip b{layers[1].low[s], layers[1].high[s]};
            if (a.low <= b.high && b.low <= a.high) {
                cover(column, lesser(a.low, b.low), greater(a.high, b.high));
            } else {
                cover(column, a.low, a.high);
                cover(column, b.low, b.high);
            }
        }
    }
    for (std::size_t i = 0; i < tileColumns; ++i)
        tileCover[i] += fromTop[i];
    std::array<float, tileColumns> sum{};
    std::array<std::uint32_t, tileColumns> line{};
    const auto scale = static_cast<float>(color.alpha() * strength / stripsPerColumn);
    const std::uint32_t rgb = packedPixel(color, 0);
    for (int row = 0; row < height; ++row) {
        const float* cells = tileCover.data() + static_cast<std::size_t>(row) * tileColumns;
        for (std::size_t i = 0; i < tileColumns; ++i) {
            sum[i] += cells[i];
            const auto alpha = static_cast<std::int32_t>(sum[i] * scale + 0.5f);
            line[i] = rgb | (static_cast<std::uint32_t>(alpha) << alphaShift);
        }
        std::uint8_t* target =
            pixels + static_cast<std::size_t>(row) * static_cast<std::size_t>(stride) * 4;
        if (count == tileColumns)
            std::memcpy(target, line.data(), sizeof line);
        else
            std::memcpy(target, line.data(), static_cast<std::size_t>(count) * 4);
    }
}

} // namespace zembra
