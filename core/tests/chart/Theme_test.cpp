// SPDX-License-Identifier: MIT
#include <zembra/chart/Theme.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace zembra;

namespace {

double linear(int component) {
    const double c = component / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(const Color& c) {
    return 0.2126 * linear(c.red()) + 0.7152 * linear(c.green()) + 0.0722 * linear(c.blue());
}

// The contrast ratio of the Web Content Accessibility Guidelines 2.1.
double contrast(const Color& a, const Color& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

struct Rgb {
    double r, g, b;
};

// How a deuteranope sees a colour. Source: G. M. Machado, M. M. Oliveira, L. A. F. Fernandes,
// "A Physiologically-based Model for Simulation of Color Vision Deficiency", 2009, severity 1.
Rgb deuteranope(const Color& c) {
    const double r = linear(c.red());
    const double g = linear(c.green());
    const double b = linear(c.blue());
    return {0.367322 * r + 0.860646 * g - 0.227968 * b, 0.280085 * r + 0.672501 * g + 0.047413 * b,
            -0.011820 * r + 0.042940 * g + 0.968881 * b};
}

double distance(const Rgb& a, const Rgb& b) {
    return std::hypot(std::cbrt(a.r) - std::cbrt(b.r), std::cbrt(a.g) - std::cbrt(b.g),
                      std::cbrt(a.b) - std::cbrt(b.b));
}

} // namespace

TEST(Theme, TextsAndSeriesStandOutFromTheGround) {
    for (const Theme& theme : {Theme::light(), Theme::dark(), Theme::print()}) {
        EXPECT_GT(contrast(theme.text, theme.background), 7.0);
        EXPECT_GT(contrast(theme.mutedText, theme.background), 4.5);
        for (const Color& color : theme.cycle)
            EXPECT_GT(contrast(color, theme.canvas), 1.9);
    }
}

TEST(Theme, ColorsOfTheCycleDifferForColorBlindReadersToo) {
    for (const Theme& theme : {Theme::light(), Theme::dark(), Theme::print()}) {
        ASSERT_GE(theme.cycle.size(), 8u);
        for (std::size_t i = 0; i < theme.cycle.size(); ++i)
            for (std::size_t k = 0; k < i; ++k)
                EXPECT_GT(distance(deuteranope(theme.cycle[i]), deuteranope(theme.cycle[k])), 0.07)
                    << i << " and " << k;
    }
}
