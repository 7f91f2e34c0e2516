// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/paint/Geometry.h>
#include <zembra/scale/ScaleMap.h>

#include <vector>

namespace zembra {

/// Reduces sorted samples to a path in pixels that draws like all of them, and replaces `path` by
/// it; points that are not finite separate its pieces.
///
/// Only what meets the columns between `left` and `right` counts, and the neighbour on either side.
/// Every column is split into a few strips at fixed places; of the samples in a strip the first,
/// the last and both extremes remain. So the path's size depends on the columns alone, and a
/// picture that is panned by whole pixels stays the same.
///
/// Requires: `samples` are sorted. Complexity: O(columns · log n) after the first call.
/// Source: U. Jugel, Z. Jerzak, G. Hackenbroich, V. Markl, "M4: A Visualization-Oriented Time
/// Series Data Aggregation", VLDB 2014.
void reduceSorted(const Samples& samples, const ScaleMap& x, const ScaleMap& y, double left,
                  double right, std::vector<Point>& path);

/// Every sample in pixels, in order.
void mapAll(const Samples& samples, const ScaleMap& x, const ScaleMap& y, std::vector<Point>& path);

} // namespace zembra
