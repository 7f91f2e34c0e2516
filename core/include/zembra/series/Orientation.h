// SPDX-License-Identifier: MIT
#pragma once

namespace zembra {

/// Which way the marks of a series stand.
enum class Orientation : int {
    /// Positions along the x axis, values along the y axis.
    Vertical,
    /// Lying: positions along the y axis, values along the x axis.
    Horizontal,
};

} // namespace zembra
