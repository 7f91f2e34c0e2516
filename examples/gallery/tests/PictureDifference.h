// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QPolygonF>

namespace gallery {

/// How far a channel of a pixel may be off, of 255. Outside of texts that is what rounding does
/// differently in the vector instructions of another processor; inside, what another version of the
/// font rasteriser does to the edges of glyphs.
constexpr int tolerance = 2;
constexpr int textTolerance = 40;

/// What two pictures of the same chart differ in.
struct PictureDifference {
    bool sameSize = true;
    /// Pixels that are off by more than is tolerated, and the first of them.
    int count = 0;
    QPoint first;
    int worst = 0;

    bool isEmpty() const { return sameSize && count == 0; }
};

/// Compares pixel by pixel; `texts` are the boxes in which the text tolerance holds.
PictureDifference difference(const QImage& actual, const QImage& golden,
                             const QList<QPolygonF>& texts);

} // namespace gallery
