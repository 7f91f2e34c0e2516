// SPDX-License-Identifier: MIT
// A stranger's program on the core alone: a plot, a range, and the font data the library carries.
#include <zembra/zembra.h>

#include <cstdio>

int main() {
    zembra::Plot plot;
    plot.add<zembra::LineSeries>(std::vector{0.0, 1.0, 2.0}, std::vector{1.0, 3.0, 2.0}, "line");
    plot.setAxisScale(2, 0.5, 1.5);
    const zembra::ScaleMap map = plot.scaleMap(2);
    const zembra::Font font(12.0);
    std::printf("range %g to %g, %zu bytes of %s\n", map.s1(), map.s2(), font.ttfData().size(),
                font.familyName().c_str());
    return map.s1() == 0.5 && map.s2() == 1.5 && font.ttfData().size() > 100000 ? 0 : 1;
}
