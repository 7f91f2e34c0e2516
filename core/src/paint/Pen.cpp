// SPDX-License-Identifier: MIT
#include <zembra/paint/Pen.h>

#include <utility>

namespace zembra {

Pen::Pen(const Color& color, double widthF) : lineColor(color), lineWidth(widthF) {}

void Pen::setDashPattern(std::vector<double> pattern) {
    dashes = std::move(pattern);
}

} // namespace zembra
