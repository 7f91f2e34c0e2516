// SPDX-License-Identifier: MIT
#pragma once

#include "LowerEnvelope.h"
#include "Picture.h"

#include <zembra/paint/Geometry.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zembra {

/// Draws strokes of paths that run from left to right, or from right to left, into a picture: each
/// pixel is blended once by the share that the whole stroke covers of it, however often the path
/// comes by.
///
/// It cuts every pixel column into vertical strips and keeps what the stroke covers of each: since
/// a path that does not turn back in x is met by a vertical line in one interval, two numbers do.
/// Joins are bevelled and ends are square, as painters draw them.
class ColumnRaster {
public:
    /// Begins a picture of the whole pixels that meet `area`.
    void begin(const Rect& area, double penWidth);
    /// Adds one piece of the path. Pieces that do not overlap their neighbours in x stay apart.
    void add(std::span<const Point> piece);
    /// The picture, cropped to what was drawn; without a buffer where that is nothing.
    Picture finish(const Color& color);
    /// The same, with a large opaque middle cut out of it: painters fill rectangles many times
    /// faster than they show pictures.
    SlicedPicture finishSliced(const Color& color);

private:
    // In pixels of the picture that was begun; right and bottom lie outside.
    struct Box {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };
    // Where a point lies among the lines between strips, and its row.
    struct Place {
        double line;
        float y;
    };
    struct Strip {
        float low;
        float high;
    };
    // Two layers, used in turn by the pieces, so that two pieces nearer than the pen stay apart.
    struct Layer {
        std::vector<float> low, high;
        // What steep parts cover on the lines between strips, to be widened by the pen.
        std::vector<float> steepLow, steepHigh;
        // How many strips edges may still pass before long ones are kept here, where they cost the
        // same however long they are; `highEdges` upside down.
        std::int64_t patience = 0;
        bool hasLongEdges = false;
        LowerEnvelope lowEdges, highEdges;
    };

    // What is covered of some columns: at all, and in each of their strips.
    struct Cover {
        float low;
        float high;
        float solidLow;
        float solidHigh;
    };

    Layer& nextLayer();
    std::span<const Layer> usedLayers() const;
    void addJoin(Layer& layer, const Point& a, const Point& b, const Point& c);
    void addFlat(Layer& layer, const Point& a, const Point& b);
    void addEdge(Layer& layer, Point a, Point b);
    static bool isSteep(const Place& a, const Place& b);
    void addSteep(Layer& layer, const Place& a, const Place& b);
    static void addStrips(Layer& layer, int first, int last, double y, double slope);
    void addLongEdge(Layer& layer, int first, int last, const LowerEnvelope::Line& edge);
    void settleLongEdges(Layer& layer);
    void widen(Layer& layer);
    void settle();
    Cover coverOf(int first, int last) const;
    template <class Use>
    void forEachTile(const Box& box, Use use) const;
    Box drawnBox() const;
    Box solidRows(Box drawn) const;
    Picture painted(const Box& box, const Color& color);
    void fillTile(const Box& tile, const Cover& cover, const Color& color, std::uint8_t* pixels,
                  int stride);
    void fillRows(const Box& tile, const Color& color, std::uint8_t* pixels, int stride);

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    double half = 0.5;
    double strength = 1.0;
    int strips = 0;
    // Lines between strips that lie before the picture.
    int reach = 0;
    std::array<Layer, 2> layers;
    std::size_t pieces = 0;
    std::vector<float> scratch;
    std::vector<Cover> tileCovers;
    std::vector<float> tileCover;
};

} // namespace zembra
