// SPDX-License-Identifier: MIT
#include "ColumnRaster.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zembra {

namespace {

constexpr int stripsPerColumn = 16;
// Columns filled together, so that a row of them is a line of the processor's cache.
constexpr int tileColumns = 16;
constexpr float nothing = 1e9f;
// Thinner strokes are drawn as wide as this, and fainter.
constexpr double thinnest = 0.5;

// Replaces each value by the extreme of it and the `window - 1` that follow, from which one more
// pass makes any window.
template <class Better>
void slide(std::vector<float>& values, std::vector<float>& scratch, std::size_t window,
           Better better) {
    std::size_t reached = 1;
    while (reached < window) {
        const std::size_t stride = std::min(reached, window - reached);
        scratch.resize(values.size());
        const std::size_t end = values.size() - std::min(stride, values.size());
        for (std::size_t i = 0; i < end; ++i)
            scratch[i] = better(values[i], values[i + stride]);
        std::copy(values.begin() + static_cast<std::ptrdiff_t>(end), values.end(),
                  scratch.begin() + static_cast<std::ptrdiff_t>(end));
        values.swap(scratch);
        reached += stride;
    }
}

// Whether the stroke of a segment is as good as its path, widened sideways by the pen.
bool isSteep(double dx, double dy) {
    return std::abs(dx) <= 1.0 / stripsPerColumn || std::abs(dy) > 6.0 * std::abs(dx);
}

float lesser(float a, float b) {
    return a < b ? a : b;
}

float greater(float a, float b) {
    return a > b ? a : b;
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
    const auto lines = static_cast<std::size_t>(strips + 2 * reach + 1);
    for (Layer& layer : layers) {
        layer.low.assign(static_cast<std::size_t>(strips), nothing);
        layer.high.assign(static_cast<std::size_t>(strips), -nothing);
        layer.steepLow.assign(lines, nothing);
        layer.steepHigh.assign(lines, -nothing);
    }
}

void ColumnRaster::add(std::span<const Point> piece) {
    if (piece.empty())
        return;
    Layer& layer = layers[pieces++ % 2];
    const auto end = [this](const Point& at, const Point& from) {
        const double dx = at.x - from.x;
        const double dy = at.y - from.y;
        const double length = std::sqrt(dx * dx + dy * dy);
        return length > 0.0 ? Point{at.x + dx / length * half, at.y + dy / length * half} : at;
    };
    if (piece.size() == 1) {
        addSegment(layer, {piece[0].x - half, piece[0].y}, {piece[0].x + half, piece[0].y});
        return;
    }
    for (std::size_t i = 1; i < piece.size(); ++i) {
        const Point a = i == 1 ? end(piece[0], piece[1]) : piece[i - 1];
        const Point b = i + 1 == piece.size() ? end(piece[i], piece[i - 1]) : piece[i];
        addSegment(layer, a, b);
        if (i + 1 == piece.size())
            break;
        // The bevel of the join: an edge on either side, of which one is already covered.
        const Point& c = piece[i + 1];
        const double abx = b.x - a.x, aby = b.y - a.y;
        const double bcx = c.x - b.x, bcy = c.y - b.y;
        if (isSteep(abx, aby) && isSteep(bcx, bcy))
            continue;
        const double ab = std::sqrt(abx * abx + aby * aby);
        const double bc = std::sqrt(bcx * bcx + bcy * bcy);
        if (ab == 0.0 || bc == 0.0)
            continue;
        const Point n{-aby / ab * half, abx / ab * half};
        const Point m{-bcy / bc * half, bcx / bc * half};
        addEdge(layer, {b.x + n.x, b.y + n.y}, {b.x + m.x, b.y + m.y});
        addEdge(layer, {b.x - n.x, b.y - n.y}, {b.x - m.x, b.y - m.y});
    }
}

void ColumnRaster::addSegment(Layer& layer, const Point& a, const Point& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    if (isSteep(dx, dy)) {
        addSteep(layer, a, b);
        return;
    }
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
    double y = a.y - top + (first - u1) * slope;
    for (int i = first; i <= last; ++i, y += slope) {
        const auto s = static_cast<std::size_t>(i);
        layer.low[s] = lesser(layer.low[s], static_cast<float>(y));
        layer.high[s] = greater(layer.high[s], static_cast<float>(y));
    }
}

void ColumnRaster::addSteep(Layer& layer, Point a, Point b) {
    if (a.x > b.x)
        std::swap(a, b);
    const double u1 = (a.x - left) * stripsPerColumn + reach;
    const double u2 = (b.x - left) * stripsPerColumn + reach;
    const double limit = static_cast<double>(layer.steepLow.size()) - 1.0;
    if (!(u2 >= 0.0 && u1 <= limit))
        return;
    // Each line takes the part of the segment that is nearer to it than to its neighbours.
    const auto include = [&layer](int line, double from, double to) {
        const auto s = static_cast<std::size_t>(line);
        layer.steepLow[s] = lesser(layer.steepLow[s], static_cast<float>(std::min(from, to)));
        layer.steepHigh[s] = greater(layer.steepHigh[s], static_cast<float>(std::max(from, to)));
    };
    const int first = static_cast<int>(std::max(u1, 0.0) + 0.5);
    const int last = static_cast<int>(std::min(u2, limit) + 0.5);
    double y = a.y - top;
    if (first < last) {
        const double slope = (b.y - a.y) / (u2 - u1);
        double next = y + (first + 0.5 - u1) * slope;
        for (int i = first; i < last; ++i, next += slope) {
            include(i, y, next);
            y = next;
        }
    }
    include(last, y, b.y - top);
}

void ColumnRaster::widen(Layer& layer) {
    const std::size_t window = std::max<std::size_t>(
        1, static_cast<std::size_t>(std::round(2.0 * half * stripsPerColumn)));
    slide(layer.steepLow, scratch, window, [](float a, float b) { return lesser(a, b); });
    slide(layer.steepHigh, scratch, window, [](float a, float b) { return greater(a, b); });
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
    for (std::size_t i = 0; i < std::min(pieces, layers.size()); ++i)
        widen(layers[i]);
}

// What was drawn, within the picture.
ColumnRaster::Box ColumnRaster::drawnBox() const {
    float low = nothing;
    float high = -nothing;
    int first = strips;
    int last = -1;
    for (const Layer& layer : layers) {
        for (int i = 0; i < strips; ++i) {
            const auto s = static_cast<std::size_t>(i);
            if (!(layer.low[s] < layer.high[s]))
                continue;
            low = lesser(low, layer.low[s]);
            high = greater(high, layer.high[s]);
            first = std::min(first, i);
            last = std::max(last, i);
        }
    }
    const int top = static_cast<int>(std::floor(std::clamp(low, 0.0f, float(rows))));
    const int bottom = static_cast<int>(std::ceil(std::clamp(high, 0.0f, float(rows))));
    if (first > last || top >= bottom)
        return {};
    return {first / stripsPerColumn, top, last / stripsPerColumn + 1, bottom};
}

// The rows of a box that are covered from end to end.
ColumnRaster::Box ColumnRaster::solidRows(Box drawn) const {
    auto low = static_cast<float>(drawn.top);
    auto high = static_cast<float>(drawn.bottom);
    for (int i = drawn.left * stripsPerColumn; i < drawn.right * stripsPerColumn; ++i) {
        const auto s = static_cast<std::size_t>(i);
        low = greater(low, layers[0].low[s]);
        high = lesser(high, layers[0].high[s]);
    }
    drawn.top = static_cast<int>(std::ceil(std::min(low, float(rows))));
    drawn.bottom = std::max(drawn.top, static_cast<int>(std::floor(std::max(high, 0.0f))));
    return drawn;
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
    for (int tile = box.left; tile < box.right; tile += tileColumns)
        fillTile({tile, box.top, std::min(tile + tileColumns, box.right), box.bottom}, color,
                 picture.buffer.pixels + static_cast<std::size_t>(tile - box.left) * 4,
                 picture.width);
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

void ColumnRaster::fillTile(const Box& tile, const Color& color, std::uint8_t* pixels, int stride) {
    const auto lineBytes = static_cast<std::size_t>(tile.right - tile.left) * 4;
    const auto lineAt = [&](int row) {
        return pixels +
               static_cast<std::size_t>(row - tile.top) * static_cast<std::size_t>(stride) * 4;
    };
    const Box drawn = drawnRows(tile);
    for (int row = tile.top; row < drawn.top; ++row)
        std::memset(lineAt(row), 0, lineBytes);
    for (int row = drawn.bottom; row < tile.bottom; ++row)
        std::memset(lineAt(row), 0, lineBytes);
    fillRows(drawn, color, lineAt(drawn.top), stride);
}

// The rows of a tile that the stroke reaches.
ColumnRaster::Box ColumnRaster::drawnRows(Box tile) const {
    const auto top = static_cast<float>(tile.top);
    const auto bottom = static_cast<float>(tile.bottom);
    float low = bottom;
    float high = top;
    for (std::size_t k = 0; k < std::min(pieces, layers.size()); ++k) {
        const Layer& layer = layers[k];
        for (int i = tile.left * stripsPerColumn; i < tile.right * stripsPerColumn; ++i) {
            const auto s = static_cast<std::size_t>(i);
            if (!(layer.low[s] < layer.high[s]))
                continue;
            low = lesser(low, layer.low[s]);
            high = greater(high, layer.high[s]);
        }
    }
    tile.top = static_cast<int>(std::floor(std::clamp(low, top, bottom)));
    tile.bottom = std::max(tile.top, static_cast<int>(std::ceil(std::clamp(high, top, bottom))));
    return tile;
}

void ColumnRaster::fillRows(const Box& tile, const Color& color, std::uint8_t* pixels, int stride) {
    const int height = tile.bottom - tile.top;
    const int count = tile.right - tile.left;
    // Each interval leaves its ends in the first derivative of the cover along y; summing them up
    // from top to bottom gives the cover.
    tileCover.assign(static_cast<std::size_t>(height + 2) * tileColumns, 0.0f);
    const auto limit = static_cast<float>(height);
    const auto offset = static_cast<float>(tile.top);
    for (int column = 0; column < count; ++column) {
        float* cells = tileCover.data() + column;
        float fromTop = 0.0f;
        const auto mark = [cells](float y, float sign) {
            const int row = static_cast<int>(y);
            const float share = sign * (y - static_cast<float>(row));
            float* cell = cells + static_cast<std::ptrdiff_t>(row) * tileColumns;
            cell[0] += sign - share;
            cell[tileColumns] += share;
        };
        // What reaches beyond the tile has no end there to be marked.
        const auto cover = [&](float low, float high) {
            low -= offset;
            high -= offset;
            if (!(low < high && low < limit && high > 0.0f))
                return;
            if (low > 0.0f)
                mark(low, 1.0f);
            else
                fromTop += 1.0f;
            if (high < limit)
                mark(high, -1.0f);
        };
        const auto begin = static_cast<std::size_t>((tile.left + column) * stripsPerColumn);
        for (std::size_t s = begin; s < begin + stripsPerColumn; ++s) {
            const Strip a{layers[0].low[s], layers[0].high[s]};
            if (pieces < 2) {
                cover(a.low, a.high);
                continue;
            }
            const Strip b{layers[1].low[s], layers[1].high[s]};
            if (a.low <= b.high && b.low <= a.high) {
                cover(lesser(a.low, b.low), greater(a.high, b.high));
            } else {
                cover(a.low, a.high);
                cover(b.low, b.high);
            }
        }
        cells[0] += fromTop;
    }
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
