// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/AreaSeries.h>
#include <zembra/series/BoxPlotSeries.h>
#include <zembra/series/ErrorBarSeries.h>
#include <zembra/series/StemSeries.h>

#include <gtest/gtest.h>

#include <vector>

using namespace zembra;
using namespace zembra::test;

// Of every kind with parts that a style may take away: what is left, in the canvas and the key.

TEST(BareStyles, ErrorBarsWithoutCapsAndMarkersAreLines) {
    Stage stage;
    ErrorBarSeries bars({5.0}, {4.0});
    bars.setXErrors({1.0});
    EXPECT_TRUE(bars.setStyle({.lineWidth = 1.0, .capLength = 0.0, .markerSize = 0.0}));
    stage.draw(bars);
    EXPECT_EQ(stage.painter().linesOf("drawPolyline"),
              (std::vector<std::string>{"drawPolyline 50,60 40,60", "drawPolyline 50,60 60,60"}));
    EXPECT_EQ(stage.painter().count("fillEllipse"), 0u);
    stage.drawKey(bars);
    EXPECT_EQ(stage.painter().count("drawPolyline"), 1u);
    EXPECT_EQ(stage.painter().count("fillEllipse"), 0u);
}

TEST(BareStyles, BoxesWithoutRingsLeaveOutliersAway) {
    Stage stage;
    BoxPlotSeries boxes(std::vector{5.0},
                        std::vector<std::vector<double>>{{3.0, 3.1, 3.2, 3.3, 9.0}});
    stage.draw(boxes);
    EXPECT_EQ(stage.painter().count("drawEllipse"), 1u);
    EXPECT_TRUE(boxes.setStyle({.outlierSize = 0.0}));
    stage.draw(boxes);
    EXPECT_EQ(stage.painter().count("drawEllipse"), 0u);
    EXPECT_GT(stage.painter().count("drawPolyline"), 0u);
}

TEST(BareStyles, AreasWithoutALineAreAFillAlone) {
    Stage stage;
    AreaSeries area({1.0, 9.0}, {4.0, 8.0});
    EXPECT_TRUE(area.setStyle({.lineWidth = 0.0}));
    stage.draw(area);
    EXPECT_EQ(stage.painter().count("drawPolyline"), 0u);
    EXPECT_EQ(stage.painter().count("fillPolygon"), 1u);
    stage.drawKey(area);
    EXPECT_EQ(stage.painter().count("fillRect"), 1u);
}

TEST(BareStyles, StemsWithoutHeadsHaveAKeyWithoutOne) {
    Stage stage;
    StemSeries stems;
    EXPECT_TRUE(stems.setStyle({.headSize = 0.0}));
    stage.drawKey(stems);
    EXPECT_EQ(stage.painter().count("drawPolyline"), 1u);
    EXPECT_EQ(stage.painter().count("fillEllipse"), 0u);
}
