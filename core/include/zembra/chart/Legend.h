// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra_export.h>

#include <memory>

namespace zembra {

/// Where a legend stands.
enum class LegendPosition : int {
    /// In the corner of the canvas where it covers least; it stays there while the user navigates.
    Automatic,
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight,
    /// Beside the canvas, as a column.
    OutsideRight,
    /// Above the canvas, as rows.
    OutsideTop,
};

/// Names the series of a plot beside pictures of them. Owned by its plot.
class ZEMBRA_EXPORT Legend {
public:
    Legend();
    ~Legend();
    Legend(const Legend&) = delete;
    Legend& operator=(const Legend&) = delete;

    void setPosition(LegendPosition position);
    LegendPosition position() const;

    /// With true the legend is shown for a single entry too, with false never. At first it is shown
    /// by itself as soon as there are two entries.
    void setVisible(bool on);
    /// Whether `entries` named series give a legend.
    bool isVisibleFor(int entries) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
