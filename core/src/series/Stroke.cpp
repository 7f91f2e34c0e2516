// SPDX-License-Identifier: MIT
#include "Stroke.h"

#include "Clip.h"
#include "ClippedPath.h"
#include "ColumnRaster.h"
#include "MaskRaster.h"
#include "PictureRuns.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <utility>

namespace zembra {

namespace {

// Pens wider than this look the same everywhere, and whole numbers cannot hold their sizes.
constexpr double widest = 2.0 * farthest;
// Strokers take time that grows with the square of the points when a pen is wider than a pixel.
constexpr std::size_t chunkSize = 16;
constexpr double chunkLength = 300.0;

double distance(const Point& a, const Point& b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}

// How much of a segment is drawn together with the join at its end.
double legOf(double width) {
    return 4.0 + 2.0 * width;
}

// Where a path may be drawn in parts, because painters draw single lines of any pen many times
// faster than paths.
enum class Joint {
    // Parts would show.
    Whole,
    // It goes on so straight that the ends of lines cover each other.
    Straight,
    // It turns back so sharply that lines end there on their own.
    Spike,
};

Joint jointAt(const Point& a, const Point& b, const Point& c, double width) {
    const double in = distance(a, b);
    const double out = distance(b, c);
    if (!(in > legOf(width) && out > legOf(width)))
        return Joint::Whole;
    const double cosine = ((b.x - a.x) * (c.x - b.x) + (b.y - a.y) * (c.y - b.y)) / (in * out);
    if (cosine > 0.98)
        return Joint::Straight;
    return cosine < -0.8 ? Joint::Spike : Joint::Whole;
}

// Calls `use(first, last, joint)` with the ends of each part of a piece, and what follows it.
template <class Use>
void forEachPart(std::span<const Point> piece, double width, Use use) {
    std::size_t first = 0;
    for (std::size_t i = 1; i + 1 < piece.size(); ++i) {
        const Joint joint = jointAt(piece[i - 1], piece[i], piece[i + 1], width);
        if (joint == Joint::Whole)
            continue;
        use(first, i, joint);
        first = i;
    }
    use(first, piece.size() - 1, Joint::Whole);
}

double boundedWidth(const Pen& pen) {
    return pen.widthF() > 0.0 ? std::min(pen.widthF(), widest) : 0.0;
}

bool isDashed(const Pen& pen) {
    return (pen.style() >= PenStyle::Dash && pen.style() <= PenStyle::DashDotDot) ||
           !pen.dashPattern().empty();
}

// Qt's painter takes a last gap that is missing for this long, and warns of it each time.
std::vector<double> withLastGap(std::vector<double> lengths) {
    constexpr double lastGap = 1.0;
    if (lengths.size() % 2 != 0)
        lengths.push_back(lastGap);
    return lengths;
}

// Dash and gap lengths in widths of the pen, as painters draw them.
std::vector<double> dashesOf(const Pen& pen) {
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
    return withLastGap(std::move(lengths));
}

// How much of a path is drawn as lines on their own.
double lineLength(const ClippedPath& stroke, double width) {
    double total = 0.0;
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i) {
        const auto p = stroke.piece(i);
        for (std::size_t k = 1; k < p.size(); ++k) {
            const double step = distance(p[k - 1], p[k]);
            if (step > 4.0 * legOf(width))
                total += step;
        }
    }
    return total;
}

// Whether a picture is cheaper than polylines, by the measure of what strokers and fillers cost:
// with a wide pen a stroker pays for every pixel of a steep path, and what must not overlap itself
// cannot be drawn in parts.
bool isDense(const ClippedPath& stroke, const Rect& area, double width, bool inOnePiece) {
    const auto size = static_cast<double>(stroke.size());
    if (size < 4.0)
        return false;
    const bool wide = width > 1.0;
    // Beyond this, it does not matter how long the path is.
    const double enough = 60.0 * area.width;
    if (inOnePiece && wide)
        return size > 64.0 || stroke.length(enough) > 4.0 * area.width;
    if (size > 0.5 * area.width && size + stroke.length(enough) / 40.0 > 1.5 * area.width)
        return true;
    const double length = stroke.length();
    if (!wide || length <= 8.0 * area.width)
        return false;
    const double lines = lineLength(stroke, width);
    return lines > 45.0 * area.width || length - lines > 8.0 * area.width;
}

template <class Raster>
Raster& rastered(const ClippedPath& stroke, const Rect& area, double width) {
    // Kept from frame to frame for its memory.
    thread_local Raster raster;
    raster.begin(area, width);
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i)
        raster.add(stroke.piece(i));
    return raster;
}

// The same in pixels. Shorter than this, dashes would run into each other and only cost time.
std::vector<double> dashLengths(const Pen& pen, double width) {
    const double shortest = std::max(0.25, 0.01 * width);
    std::vector<double> lengths = dashesOf(pen);
    for (double& length : lengths)
        length = std::isfinite(length) ? std::max(length * width, shortest) : shortest;
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

Picture rasteredDashes(const ClippedPath& stroke, const Rect& area, double width, const Pen& pen) {
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

Point between(const Point& a, const Point& b, double share) {
    return {a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)};
}

// Hands a piece over in chunks that meet within a segment, where neither joins nor ends show: in
// the middle of the longest around, or in a line along one that has more than four times `leg`.
void drawInChunks(Painter& painter, std::span<const Point> piece, double leg) {
    std::vector<Point> chunk{piece.front()};
    double length = 0.0;
    double longest = 0.0;
    for (std::size_t i = 1; i < piece.size(); ++i) {
        const Point& from = piece[i - 1];
        const Point& to = piece[i];
        const double step = distance(from, to);
        length += step;
        longest = std::max(longest, step);
        const bool full = chunk.size() >= chunkSize || length > chunkLength;
        const bool roomy = step > 0.5 * longest || chunk.size() >= 2 * chunkSize;
        if (step > 4.0 * leg) {
            const Point begin = i > 1 ? between(from, to, leg / step) : from;
            const Point end = i + 1 < piece.size() ? between(to, from, leg / step) : to;
            if (i > 1) {
                chunk.push_back(begin);
                painter.drawPolyline(chunk);
            }
            painter.drawLine(begin.x, begin.y, end.x, end.y);
            chunk.assign(1, end);
            length = leg;
            longest = 0.0;
        } else if (full && roomy && chunk.size() > 1) {
            const Point middle = between(from, to, 0.5);
            chunk.push_back(middle);
            painter.drawPolyline(chunk);
            chunk.assign(1, middle);
            length = 0.5 * step;
            longest = 0.0;
        }
        if (to != chunk.back())
            chunk.push_back(to);
    }
    if (chunk.size() > 1)
        painter.drawPolyline(chunk);
}

// What the bevel of a sharp turn adds to two lines that end there, where that shows.
void drawBevel(Painter& painter, const Point& at, const Point& in, const Point& out,
               const Color& color) {
    const Point a{in.x - at.x, in.y - at.y};
    const Point b{out.x - at.x, out.y - at.y};
    const double turn = a.x * b.y - a.y * b.x;
    constexpr double visible = 0.1;
    if (0.5 * std::abs(turn) < visible)
        return;
    const double side = turn > 0.0 ? 1.0 : -1.0;
    painter.fillPolygon(
        {at, {at.x + side * a.y, at.y - side * a.x}, {at.x - side * b.y, at.y + side * b.x}},
        color);
}

// The same stroke in parts, each of which is cheap. Lines end squarely half a pen beyond their
// points, so at spikes they are shorter by as much.
void drawInParts(Painter& painter, std::span<const Point> piece, double width, const Color& color) {
    const auto towards = [half = 0.5 * width](const Point& from, const Point& to) {
        return between(from, to, half / distance(from, to));
    };
    std::vector<Point> part;
    Joint before = Joint::Whole;
    forEachPart(piece, width, [&](std::size_t first, std::size_t last, Joint after) {
        part.assign(piece.begin() + static_cast<std::ptrdiff_t>(first),
                    piece.begin() + static_cast<std::ptrdiff_t>(last) + 1);
        if (before == Joint::Spike)
            part.front() = towards(piece[first], piece[first + 1]);
        if (after == Joint::Spike)
            part.back() = towards(piece[last], piece[last - 1]);
        if (part.size() == 2)
            painter.drawLine(part[0].x, part[0].y, part[1].x, part[1].y);
        else
            drawInChunks(painter, part, legOf(width));
        if (after == Joint::Spike)
            drawBevel(painter, piece[last], part.back(), towards(piece[last], piece[last + 1]),
                      color);
        before = after;
    });
}

enum class Form { Whole, Sliced };

SlicedPicture picturedStroke(const ClippedPath& stroke, const Rect& area, double width,
                             const Pen& pen, Form form) {
    // A path that crosses the canvas this often leaves no gaps to be seen.
    constexpr double crossings = 60.0;
    if (isDashed(pen) && stroke.length() < crossings * area.width)
        return {rasteredDashes(stroke, area, width, pen), {}, {}};
    if (stroke.runsOneWay()) {
        auto& raster = rastered<ColumnRaster>(stroke, area, width);
        if (form == Form::Sliced)
            return raster.finishSliced(pen.color());
        return {raster.finish(pen.color()), {}, {}};
    }
    return {rastered<MaskRaster>(stroke, area, width).finish(pen.color()), {}, {}};
}

// Whether a dense path leaves nothing of the canvas free, since its pen reaches from wherever it
// passes to each corner. Told by one look at the points: no raster is as fast with pens so wide.
bool coversAll(const ClippedPath& stroke, const Rect& area, double width) {
    if (!(0.5 * width > area.width + area.height))
        return false;
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i) {
        for (const Point& point : stroke.piece(i)) {
            if (area.contains(point))
                return true;
        }
    }
    return false;
}

void drawDense(Painter& painter, const Rect& area, ClippedPath& stroke, const Pen& pen,
               double width, double ratio, FrameBuffers& buffers) {
    if (!isDashed(pen) && coversAll(stroke, area, width)) {
        painter.fillRect(area, pen.color());
        return;
    }
    // What a painter fills in a fraction of a frame.
    constexpr std::size_t mostRuns = 30000;
    if (ratio != 1.0) {
        stroke.scale(ratio);
        const Rect fine{area.x * ratio, area.y * ratio, area.width * ratio, area.height * ratio};
        const auto picture = picturedStroke(stroke, fine, width * ratio, pen, Form::Whole);
        if (drawRuns(painter, picture.upper, pen.color(), ratio, mostRuns))
            return;
        stroke.scale(1.0 / ratio);
    }
    drawPicture(painter, picturedStroke(stroke, area, width, pen, Form::Sliced), pen.color(),
                buffers);
}

} // namespace

bool isDashPattern(const std::vector<double>& lengths) {
    const auto isLength = [](double length) { return std::isfinite(length) && length >= 0.0; };
    return std::all_of(lengths.begin(), lengths.end(), isLength) &&
           (lengths.empty() || *std::max_element(lengths.begin(), lengths.end()) > 0.0);
}

bool hasManyDashes(const Pen& pen, double length, const Rect& area) {
    // They take a painter a fraction of a frame.
    constexpr double mostRows = 5000.0;
    if (!isDashed(pen) || !isDashPattern(pen.dashPattern()))
        return false;
    const std::vector<double> lengths = dashesOf(pen);
    const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const double width = boundedWidth(pen) > 0.0 ? boundedWidth(pen) : 1.0;
    // A dash reaches about as many rows as the pen is wide.
    return length * std::min(1.0, (area.width + area.height) / width) > mostRows * period;
}

void usePen(Painter& painter, const Pen& pen) {
    const double width = boundedWidth(pen);
    std::vector<double> dashes = pen.dashPattern();
    const bool drawable = isDashPattern(dashes);
    if (drawable && dashes.size() % 2 == 0 && pen.widthF() == width) {
        painter.setPen(pen);
        return;
    }
    Pen bounded = pen;
    bounded.setWidthF(width);
    if (drawable) {
        bounded.setDashPattern(withLastGap(std::move(dashes)));
    } else {
        bounded.setDashPattern({});
        bounded.setStyle(PenStyle::Solid);
    }
    painter.setPen(bounded);
}

void strokePath(Painter& painter, const Rect& area, std::span<const Point> path, const Pen& pen,
                double pixelRatio, FrameBuffers& buffers) {
    const bool hidden = pen.style() == PenStyle::None && pen.dashPattern().empty();
    if (hidden || area.isEmpty())
        return;
    // A pen of no width is drawn as the thinnest line there is.
    const double bounded = boundedWidth(pen);
    const double width = bounded > 0.0 ? bounded : 1.0;
    const Rect limits =
        intersected(area.grown(width), {-farthest, -farthest, 2.0 * farthest, 2.0 * farthest});
    thread_local ClippedPath stroke;
    stroke.assign(path, limits);
    // Parts that overlap would show in translucent colours, and interrupt dashes.
    const bool inOnePiece = pen.color().alpha() < 255 || isDashed(pen);
    if (isDense(stroke, area, width, inOnePiece) || hasManyDashes(pen, stroke.length(), area)) {
        drawDense(painter, area, stroke, pen, width, pixelRatio, buffers);
        return;
    }
    usePen(painter, pen);
    // A few points are the painter's own business.
    constexpr std::size_t few = 4;
    const bool mayBeCut = width > 1.0 && !inOnePiece;
    // Each cut doubles the soft edge of the line over a pen's width. Among steep lines that is
    // lost, on a calm curve it would be a bead, so that has as few cuts as can be.
    const bool isSteep = stroke.length() > 4.0 * area.width;
    for (std::size_t i = 0; i < stroke.pieceCount(); ++i) {
        const auto piece = stroke.piece(i);
        if (piece.size() == 1)
            drawDot(painter, piece.front(), width, pen.color(), area);
        else if (!mayBeCut || piece.size() <= few)
            painter.drawPolyline({piece.begin(), piece.end()});
        else if (isSteep)
            drawInParts(painter, piece, width, pen.color());
        else
            drawInChunks(painter, piece, std::numeric_limits<double>::infinity());
    }
}

} // namespace zembra
