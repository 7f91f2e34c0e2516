// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Series.h>

#include <cstddef>
#include <functional>
#include <optional>

namespace zembra {

/// The nearest of point-like samples, among those within the area of the maps that `counts`
/// accepts; all of them without it.
///
/// Complexity: O(log² n) as a rule where samples are in order of x, O(n) where they are not.
std::optional<NearestSample> nearestPoint(const Samples& samples, const Point& pixel,
                                          const ScaleMap& x, const ScaleMap& y,
                                          const std::function<bool(std::size_t)>& counts = {});

} // namespace zembra
