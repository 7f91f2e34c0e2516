// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra_export.h>

#include <span>

namespace zembra {

/// The quantile of sorted samples: at `share` of the way through them, interpolated linearly.
///
/// Range: `share` is clamped to 0..1. NaN without samples. Requires: rising, finite samples.
/// Source: R. J. Hyndman, Y. Fan, "Sample Quantiles in Statistical Packages", The American
/// Statistician 50(4), 1996, definition 7.
ZEMBRA_EXPORT double quantile(std::span<const double> sorted, double share);

} // namespace zembra
