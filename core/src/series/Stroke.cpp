// SPDX-License-Identifier: MIT
#include "Stroke.h"

#include "Clip.h"
#include "ColumnRaster.h"
#include "MaskRaster.h"
#include "Simplify.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zembra {

namespace {

// Raster engines lose precision or break beyond this many pixels.
constexpr double farthest = 16000.0;
// No eye sees a line move by this much.
constexpr double tolerance = 0.025;
// Strokers take time that grows with the square of the points when a pen is wider than a pixel.
constexpr std::size_t chunkSize = 16;
constexpr double chunkLength = 300.0;

bool isFinite(const Point& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

// A clipped and simplified path.
class Stroke {
public:
    void clip(std::span<const Point> path, const Rect& limits);
    void simplifyPieces();
    bool runsOneWay() const;
    double length() const;
    std::size_t size() const { return points.size(); }
    std::size_t pieceCount() const { return ends.size(); }
    std::span<const Point> piece(std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        return std::span(points).subspan(begin, ends[i] - begin);
    }

private:
    void endPiece() {
        if (points.size() > (ends.empty() ? 0 : ends.back()))
            ends.push_back(points.size());
    }

    std::vector<Point> points;
    std::vector<std::size_t> ends;
    std::vector<Point> simple;
};

void Stroke::clip(std::span<const Point> path, const Rect& limits) {
    points.clear();
    ends.clear();
    bool connected = false;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Point& to = path[i];
        if (!isFinite(to)) {
            endPiece();
            connected = false;
            continue;
        }
        if (!connected) {
            connected = true;
            endPiece();
            if (limits.contains(to))
                points.push_back(to);
            continue;
        }
        const Point& from = path[i - 1];
        const bool joined = limits.contains(from);
        if (joined && limits.contains(to)) {
            points.push_back(to);
            continue;
        }
        const auto part = clipSegment(from, to, limits);
        if (!part)
            continue;
        if (!joined) {
            endPiece();
            points.push_back(part->first);
        }
        points.push_back(part->second);
        if (part->second != to)
            endPiece();
    }
    endPiece();
}

void Stroke::simplifyPieces() {
    simple.clear();
    std::size_t begin = 0;
    for (std::size_t& end : ends) {
        simplify(std::span(points).subspan(begin, end - begin), tolerance, simple);
        begin = end;
        end = simple.size();
    }
    points.swap(simple);
}

bool Stroke::runsOneWay() const {
    bool right = true;
    bool leftwards = true;
    for (std::size_t i = 1; i < points.size(); ++i) {
        right = right && points[i].x >= points[i - 1].x;
        leftwards = leftwards && points[i].x <= points[i - 1].x;
    }
    return right || leftwards;
}

double Stroke::length() const {
    double total = 0.0;
    for (std::size_t i = 0; i < pieceCount(); ++i) {
        const auto p = piece(i);
        for (std::size_t k = 1; k < p.size(); ++k)
            total += std::abs(p[k].x - p[k - 1].x) + std::abs(p[k].y - p[k - 1].y);
    }
    return total;
}

bool isDashed(const Pen& pen) {
    return (pen.style() >= PenStyle::Dash && pen.style() <= PenStyle::DashDotDot) ||
           !pen.dashPattern().empty();
}

// Whether a picture is cheaper than polylines, by the measure of what strokers and fillers cost:
// with a wide pen a stroker pays for every pixel of a steep path, and what must not overlap itself
// cannot be drawn in chunks.
bool isDense(const Stroke& stroke, const Rect& area, bool wide, bool inOnePiece) {
    const auto size = static_cast<double>(stroke.size());
    if (size < 4.0)
        return false;
    const double length = stroke.length();
    if (inOnePiece && wide)
        return size > 64.0 || length > 4.0 * area.width;
    if (wide && length > 8.0 * area.width)
        return true;
    return size > 0.5 * area.width && size + length / 40.0 > 1.5 * area.width;
}

template <class Raster>
Picture rastered(const Stroke& stroke, const Rect& area, double width, const Color& color) {
    // Kept from frame to frame for its memory.
    thread_local Raster raster;
    raster.begin(area, width);
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i)
        raster.add(stroke.piece(i));
    return raster.finish(color);
}

// Dash and gap lengths in pixels, as painters draw them.
std::vector<double> dashLengths(const Pen& pen, double width) {
    std::vector<double> lengths = pen.dashPattern();
    if (lengths.empty()) {
        switch (pen.style()) {
        case PenStyle::Dash:
            lengths = {4.0, 2.0};
            break;
        case PenStyle::Dot:
            lengths = {1.0, 2.0};
            break;
        case PenStyle::DashDot:
            lengths = {4.0, 2.0, 1.0, 2.0};
            break;
        default:
            lengths = {4.0, 2.0, 1.0, 2.0, 1.0, 2.0};
        }
    }
    if (lengths.size() % 2 != 0)
        lengths.push_back(0.0);
    // Shorter than this, dashes would run into each other and only cost time.
    for (double& length : lengths)
        length = std::isfinite(length) ? std::max(length * width, 0.25) : 0.25;
    return lengths;
}

// Cuts one piece into its dashes.
void addDashes(MaskRaster& raster, std::span<const Point> piece,
               const std::vector<double>& lengths) {
    std::vector<Point> dash{piece.front()};
    std::size_t part = 0;
    double left = lengths[0];
    for (std::size_t i = 1; i < piece.size(); ++i) {
        const Point& from = piece[i - 1];
        const Point& to = piece[i];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        double done = 0.0;
        while (length - done > left) {
            done += left;
            const double share = done / length;
            const Point cut{from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
            dash.push_back(cut);
            if (part % 2 == 0)
                raster.add(dash);
            part = (part + 1) % lengths.size();
            left = lengths[part];
            dash.assign(1, cut);
        }
        left -= length - done;
        dash.push_back(to);
    }
    if (part % 2 == 0)
        raster.add(dash);
}

Picture rasteredDashes(const Stroke& stroke, const Rect& area, double width, const Pen& pen) {
    thread_local MaskRaster raster;
    raster.begin(area, width);
    const std::vector<double> lengths = dashLengths(pen, width);
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i)
        addDashes(raster, stroke.piece(i), lengths);
    return raster.finish(pen.color());
}

void drawDot(Painter& painter, const Point& centre, double width, const Color& color,
             const Rect& area) {
    const Rect dot =
        intersected({centre.x - 0.5 * width, centre.y - 0.5 * width, width, width}, area);
    if (!dot.isEmpty())
        painter.fillRect(dot, color);
}

double distance(const Point& a, const Point& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

// Hands a piece over in chunks that meet in the middle of a segment, the longest around, so that
// neither joins nor ends show where.
void drawInChunks(Painter& painter, std::span<const Point> piece) {
    std::vector<Point> chunk{piece.front()};
    double length = 0.0;
    double longest = 0.0;
    for (std::size_t i = 1; i < piece.size(); ++i) {
        const double step = distance(piece[i - 1], piece[i]);
        length += step;
        longest = std::max(longest, step);
        const bool full = chunk.size() >= chunkSize || length > chunkLength;
        const bool roomy = step > 0.5 * longest || chunk.size() >= 2 * chunkSize;
        if (full && roomy && chunk.size() > 1) {
            const Point middle{0.5 * (piece[i - 1].x + piece[i].x),
                               0.5 * (piece[i - 1].y + piece[i].y)};
            chunk.push_back(middle);
            painter.drawPolyline(chunk);
            chunk.assign(1, middle);
            length = 0.5 * step;
            longest = 0.0;
        }
        chunk.push_back(piece[i]);
    }
    painter.drawPolyline(chunk);
}

} // namespace

void strokePath(Painter& painter, const Rect& area, std::span<const Point> path, const Pen& pen,
                FrameBuffers& buffers) {
    const bool hidden = pen.style() == PenStyle::None && pen.dashPattern().empty();
    if (hidden || area.isEmpty())
        return;
    // A pen of no width is drawn as the thinnest line there is.
    const double width = pen.widthF() > 0.0 ? pen.widthF() : 1.0;
    const Rect limits = intersected(area.grown(width + 1.0),
                                    {-farthest, -farthest, 2.0 * farthest, 2.0 * farthest});
    thread_local Stroke stroke;
    stroke.clip(path, limits);
    stroke.simplifyPieces();
    const bool dashed = isDashed(pen);
    // Chunks that overlap would show in translucent colours, and interrupt dashes.
    const bool inOnePiece = pen.color().alpha() < 255 || dashed;
    if (isDense(stroke, area, width > 1.0, inOnePiece)) {
        // A path that crosses the canvas this often leaves no gaps to be seen.
        constexpr double crossings = 60.0;
        if (dashed && stroke.length() < crossings * area.width)
            drawPicture(painter, rasteredDashes(stroke, area, width, pen), buffers);
        else if (stroke.runsOneWay())
            drawPicture(painter, rastered<ColumnRaster>(stroke, area, width, pen.color()), buffers);
        else
            drawPicture(painter, rastered<MaskRaster>(stroke, area, width, pen.color()), buffers);
        return;
    }
    painter.setPen(pen);
    const bool inChunks = width > 1.0 && !inOnePiece;
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i) {
        const auto piece = stroke.piece(i);
        if (piece.size() == 1)
            drawDot(painter, piece.front(), width, pen.color(), area);
        else
            inChunks ? drawInChunks(painter, piece)
                     : painter.drawPolyline({piece.begin(), piece.end()});
    }
}

} // namespace zembra
