// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

#include <QImage>

#include <string>

namespace viewer {

/// How large a picture is and how finely it is drawn.
struct PictureSize {
    /// Units: logical pixels, of which 96 make an inch.
    int width = 960;
    int height = 600;
    /// Pixels per inch; 96 gives a pixel for each logical one. Matters for pictures made of pixels.
    int resolution = 96;

    int pixelWidth() const { return inPixels(width); }
    int pixelHeight() const { return inPixels(height); }

private:
    int inPixels(int side) const;
};

/// Beyond this the pixels of one picture alone take 400 MB.
constexpr int largestPictureSide = 10000;

/// Draws a chart as pixels.
QImage plotImage(zembra::Plot& plot, const PictureSize& size);

/// Writes a chart as PNG, SVG or PDF, as the suffix of `path` tells. A file that is there is
/// replaced once the new one is whole, never by half a one, and stays where that fails.
///
/// Errors: throws Failure where the file cannot be written.
void exportPlot(zembra::Plot& plot, const std::string& path, const PictureSize& size);

} // namespace viewer
