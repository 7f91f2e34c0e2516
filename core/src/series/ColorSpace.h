// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>

#include <array>

namespace zembra {

using Triple = std::array<double, 3>;

/// CIE L*a*b* of an sRGB colour under D65; alpha is left out.
Triple labOf(const Color& color);
/// The opaque sRGB colour nearest to an L*a*b* triple, by clamping.
Color colorOfLab(const Triple& lab);
/// The opaque sRGB colour nearest to an OKLab triple, by clamping.
/// Source: B. Ottosson, "A perceptual color space for image processing", 2020.
Color colorOfOklab(const Triple& lab);

} // namespace zembra
