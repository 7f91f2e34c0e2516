// SPDX-License-Identifier: MIT
#pragma once

#include "Chart.h"

#include <QImage>
#include <QString>

namespace gallery {

/// The size of the golden pictures. Units: pixels.
constexpr int goldenWidth = 480;
constexpr int goldenHeight = 320;

/// The plot in `width` × `height` logical pixels, each `ratio` pixels of the picture wide.
QImage rendered(zembra::Plot& plot, int width, int height, int ratio = 1);

/// Writes every chart as PNG and SVG, and an index.html that shows them all.
/// Errors: returns false where a file cannot be written.
bool writeGallery(const QString& folder);

/// Writes every chart as the picture that the tests compare with, and nothing else.
/// Errors: returns false where a file cannot be written.
bool writeGoldens(const QString& folder);

} // namespace gallery
