// SPDX-License-Identifier: MIT
#include <zembra/paint/Color.h>

#include <algorithm>
#include <cmath>

namespace zembra {

Color mix(const Color& from, const Color& to, double share) {
    const double s = std::clamp(std::isnan(share) ? 0.0 : share, 0.0, 1.0);
    const auto blend = [s](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * s)); };
    return {blend(from.red(), to.red()), blend(from.green(), to.green()),
            blend(from.blue(), to.blue()), blend(from.alpha(), to.alpha())};
}

} // namespace zembra
