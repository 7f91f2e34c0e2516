// SPDX-License-Identifier: MIT
#include "PlotColors.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

TEST(PlotColors, ColorsOfTheThemeChangeWithItAndOthersStay) {
    zembra::Plot plot;
    const zembra::Color first = zembra::Theme::light().cycle[1];
    const auto themed = plot.add<zembra::LineSeries>();
    themed->setColor(first.withAlpha(150));
    const auto own = plot.add<zembra::LineSeries>();
    own->setColor(zembra::Color(1, 2, 3));
    const auto automatic = plot.add<zembra::LineSeries>();

    setGround(plot, Ground::Dark);
    EXPECT_EQ(plot.theme().background, zembra::Theme::dark().background);
    EXPECT_EQ(themed->color(), zembra::Theme::dark().cycle[1].withAlpha(150));
    EXPECT_EQ(own->color(), zembra::Color(1, 2, 3));
    EXPECT_EQ(automatic->color(), std::nullopt);

    setGround(plot, Ground::Light);
    EXPECT_EQ(themed->color(), first.withAlpha(150));
}

} // namespace
} // namespace viewer
