// SPDX-License-Identifier: MIT
#include "RecordingPainter.h"

#include <gtest/gtest.h>

using namespace zembra;
using zembra::test::RecordingPainter;

TEST(RecordingPainter, WritesEachCallAsALine) {
    RecordingPainter painter;
    painter.setPen(Pen(Color(255, 0, 0, 128), 2.0));
    painter.drawPolyline({{0.0, 0.004}, {-0.001, 10.125}});
    painter.fillRect({1.0, 2.0, 3.5, 100.0}, Color(0, 16, 255));
    painter.drawText(5.0, 6.0, "a b", Font(12.0), Color());
    EXPECT_EQ(painter.text(), "setPen #ff000080 2\n"
                              "drawPolyline 0,0 0,10.12\n"
                              "fillRect 1,2 3.5x100 #0010ff\n"
                              "drawText 5,6 \"a b\" \"Lato\" 12 #000000\n");
    EXPECT_EQ(painter.count("drawPolyline"), 1u);
    EXPECT_EQ(painter.count("draw"), 0u);
    EXPECT_EQ(painter.count(), 4u);
    EXPECT_EQ(painter.vertices(), 7u);
    EXPECT_FALSE(painter.sawWildNumber());
}

TEST(RecordingPainter, MeasuresEveryCodePointAlike) {
    RecordingPainter painter;
    EXPECT_EQ(painter.measureText("\xC2\xB5m", Font(10.0)), (TextExtent{12.0, 10.0}));
    EXPECT_EQ(painter.measurements(), 1u);
    EXPECT_EQ(painter.count(), 0u);
}

TEST(RecordingPainter, NoticesNumbersThatNoPainterTakes) {
    RecordingPainter painter;
    painter.drawLine(0.0, 0.0, 16001.0, 0.0);
    EXPECT_TRUE(painter.sawWildNumber());
    painter.clear();
    painter.drawLine(0.0, 0.0, 16000.0, 0.0);
    EXPECT_FALSE(painter.sawWildNumber());
    painter.drawLine(0.0, 0.0, 0.0, 0.0 / 0.0);
    EXPECT_TRUE(painter.sawWildNumber());
}
