// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

#include <string>

namespace viewer {

/// Writes a chart as PNG, SVG or PDF, as the suffix of `path` tells, `width` × `height` pixels
/// large. An existing file is replaced once the new one is whole, never by half a one.
///
/// Errors: throws Failure where the file cannot be written.
void exportPlot(zembra::Plot& plot, const std::string& path, int width, int height);

} // namespace viewer
