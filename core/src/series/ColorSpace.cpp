// SPDX-License-Identifier: MIT
#include "ColorSpace.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// The transfer function of sRGB (IEC 61966-2-1, 1999).
double linearOf(double encoded) {
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

int encodedOf(double linear) {
    const double l = std::clamp(linear, 0.0, 1.0);
    const double encoded = l <= 0.0031308 ? 12.92 * l : 1.055 * std::pow(l, 1.0 / 2.4) - 0.055;
    return static_cast<int>(std::lround(255.0 * encoded));
}

// CIE 15, "Colorimetry", 2004.
constexpr double edge = 6.0 / 29.0;
constexpr Triple white = {0.95047, 1.0, 1.08883};

double bent(double t) {
    return t > edge * edge * edge ? std::cbrt(t) : t / (3.0 * edge * edge) + 4.0 / 29.0;
}

double straightened(double t) {
    return t > edge ? t * t * t : 3.0 * edge * edge * (t - 4.0 / 29.0);
}

} // namespace

Triple labOf(const Color& color) {
    const double r = linearOf(color.red() / 255.0);
    const double g = linearOf(color.green() / 255.0);
    const double b = linearOf(color.blue() / 255.0);
    const double x = bent((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / white[0]);
    const double y = bent((0.2126729 * r + 0.7151522 * g + 0.0721750 * b) / white[1]);
    const double z = bent((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / white[2]);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

Color colorOfLab(const Triple& lab) {
    const double fy = (lab[0] + 16.0) / 116.0;
    const double x = white[0] * straightened(fy + lab[1] / 500.0);
    const double y = white[1] * straightened(fy);
    const double z = white[2] * straightened(fy - lab[2] / 200.0);
    return {encodedOf(3.2404542 * x - 1.5371385 * y - 0.4985314 * z),
            encodedOf(-0.9692660 * x + 1.8760108 * y + 0.0415560 * z),
            encodedOf(0.0556434 * x - 0.2040259 * y + 1.0572252 * z)};
}

Color colorOfOklab(const Triple& lab) {
    const auto cube = [](double t) { return t * t * t; };
    const double l = cube(lab[0] + 0.3963377774 * lab[1] + 0.2158037573 * lab[2]);
    const double m = cube(lab[0] - 0.1055613458 * lab[1] - 0.0638541728 * lab[2]);
    const double s = cube(lab[0] - 0.0894841775 * lab[1] - 1.2914855480 * lab[2]);
    return {encodedOf(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            encodedOf(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            encodedOf(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

} // namespace zembra
