// SPDX-License-Identifier: MIT
#include "support/TextBoxPainter.h"

#include <zembra/chart/Plot.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace zembra;
using zembra::test::TextBoxPainter;

namespace {

std::optional<Rect> boxOf(const TextBoxPainter& painter, const std::string& text) {
    for (const auto& box : painter.boxes())
        if (box.text == text)
            return box.rect;
    return std::nullopt;
}

void addLine(Plot& plot, const std::string& name, bool rising = true) {
    plot.add<LineSeries>(std::vector{0.0, 1.0},
                         rising ? std::vector{0.0, 1.0} : std::vector{1.0, 0.0}, name);
}

} // namespace

TEST(Legend, AppearsWithTheSecondNamedSeries) {
    Plot plot;
    TextBoxPainter painter;
    addLine(plot, "one");
    plot.renderInto(painter, 640, 480);
    EXPECT_FALSE(boxOf(painter, "one"));
    addLine(plot, "two");
    plot.renderInto(painter, 640, 480);
    EXPECT_TRUE(boxOf(painter, "one"));
    EXPECT_TRUE(boxOf(painter, "two"));
}

TEST(Legend, ShowsOneEntryOnlyWhenAskedAndNoneWhenForbidden) {
    Plot plot;
    addLine(plot, "one");
    plot.legend().setVisible(true);
    TextBoxPainter painter;
    plot.renderInto(painter, 640, 480);
    EXPECT_TRUE(boxOf(painter, "one"));
    addLine(plot, "two");
    plot.legend().setVisible(false);
    TextBoxPainter second;
    plot.renderInto(second, 640, 480);
    EXPECT_FALSE(boxOf(second, "two"));
}

TEST(Legend, KeysOfWideLinesDoNotReachTheNames) {
    // Notes how far the lines reach that end left of a name, in its rows.
    class KeyPainter : public TextBoxPainter {
    public:
        void setPen(const Pen& pen) override {
            half = 0.5 * pen.widthF();
            TextBoxPainter::setPen(pen);
        }
        void drawLine(double x1, double y1, double x2, double y2) override {
            note({{x1, y1}, {x2, y2}});
        }
        void drawPolyline(const std::vector<Point>& points) override { note(points); }
        std::vector<std::pair<Point, double>> ends;

    private:
        void note(const std::vector<Point>& points) { ends.emplace_back(points.back(), half); }
        double half = 0.0;
    };
    for (const double width : {4.0, 30.0, 1e9}) {
        Plot plot;
        addLine(plot, "one");
        addLine(plot, "two", false);
        for (const auto& series : plot.series())
            std::dynamic_pointer_cast<LineSeries>(series)->setWidth(width);
        KeyPainter painter;
        plot.renderInto(painter, 640, 480);
        int keys = 0;
        for (const char* name : {"one", "two"}) {
            const auto box = boxOf(painter, name);
            ASSERT_TRUE(box) << width;
            for (const auto& [end, half] : painter.ends) {
                if (end.y < box->top() || end.y > box->bottom() || end.x > box->left() ||
                    end.x < box->left() - 10.0)
                    continue;
                ++keys;
                EXPECT_LE(end.x + half, box->left()) << width;
                EXPECT_GE(end.y - half, box->top()) << width;
                EXPECT_LE(end.y + half, box->bottom()) << width;
            }
        }
        EXPECT_EQ(keys, 2) << width;
    }
}

TEST(Legend, TakesTheCornerThatCoversLeast) {
    for (bool rising : {true, false}) {
        Plot plot;
        addLine(plot, "one", rising);
        addLine(plot, "two", rising);
        TextBoxPainter painter;
        plot.renderInto(painter, 640, 480);
        const auto box = boxOf(painter, "one");
        ASSERT_TRUE(box);
        // A rising line leaves the upper left free, a falling one the upper right.
        EXPECT_EQ(box->left() < 320.0, rising);
        EXPECT_LT(box->top(), 240.0);
    }
}

TEST(Legend, StaysInItsCornerWhileTheUserNavigates) {
    Plot plot;
    addLine(plot, "one");
    addLine(plot, "two");
    TextBoxPainter painter;
    plot.renderInto(painter, 640, 480);
    const auto before = boxOf(painter, "one");
    plot.setAxisScale(2, 0.9, 3.0);
    plot.setAxisScale(0, -3.0, 0.1);
    TextBoxPainter later;
    plot.renderInto(later, 640, 480);
    EXPECT_EQ(boxOf(later, "one"), before);
}

TEST(Legend, OutsideThereIsNoLegendInTheCanvas) {
    for (LegendPosition position : {LegendPosition::OutsideRight, LegendPosition::OutsideTop}) {
        Plot plot;
        addLine(plot, "one");
        addLine(plot, "two");
        plot.legend().setPosition(position);
        TextBoxPainter painter;
        plot.renderInto(painter, 640, 480);
        for (const char* name : {"one", "two"}) {
            const auto box = boxOf(painter, name);
            ASSERT_TRUE(box);
            EXPECT_FALSE(test::overlap(*box, plot.canvasRect()));
            EXPECT_LE(box->right(), 640.0);
        }
    }
}

TEST(Legend, CountsTheEntriesThatFindNoRoom) {
    for (LegendPosition position :
         {LegendPosition::TopLeft, LegendPosition::OutsideRight, LegendPosition::OutsideTop}) {
        Plot plot;
        for (int i = 0; i < 200; ++i)
            addLine(plot, "series number " + std::to_string(i));
        plot.legend().setPosition(position);
        TextBoxPainter painter;
        plot.renderInto(painter, 640, 480);
        const bool counted =
            std::any_of(painter.boxes().begin(), painter.boxes().end(), [](const auto& box) {
                return box.text.find(" more") != std::string::npos;
            });
        EXPECT_TRUE(counted);
        for (const auto& box : painter.boxes())
            EXPECT_LE(box.rect.right(), 640.0) << box.text;
    }
}

TEST(Legend, GoesOutsideWhereItWouldHideTheDataInEveryCorner) {
    Plot plot;
    // Zigzags all over the canvas.
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 400; ++i) {
        x.push_back(i);
        y.push_back(i % 2);
    }
    plot.add<LineSeries>(x, y, "one");
    plot.add<LineSeries>(x, y, "two");
    TextBoxPainter painter;
    plot.renderInto(painter, 640, 480);
    const auto box = boxOf(painter, "one");
    ASSERT_TRUE(box);
    EXPECT_LT(box->bottom(), plot.canvasRect().top());
}

TEST(Legend, ChoosingItsPlaceLeavesNoTrace) {
    Plot plot;
    addLine(plot, "one");
    addLine(plot, "two");
    TextBoxPainter first;
    plot.renderInto(first, 640, 480);
    TextBoxPainter second;
    plot.renderInto(second, 640, 480);
    EXPECT_EQ(first.text(), second.text());
}

TEST(Legend, LongNamesAreCutBetweenCharacters) {
    for (const std::string& piece : {std::string("ä"), std::string("ä "), std::string("€ö  ")}) {
        for (const LegendPosition position :
             {LegendPosition::OutsideRight, LegendPosition::OutsideTop}) {
            for (int width = 150; width < 500; width += 31) {
                Plot plot;
                std::string name;
                for (int i = 0; i < 100; ++i)
                    name += piece;
                addLine(plot, name);
                addLine(plot, name + "2");
                plot.legend().setPosition(position);
                TextBoxPainter painter;
                plot.renderInto(painter, width, 300);
                for (const auto& box : painter.boxes()) {
                    if (box.text.find(piece) == std::string::npos)
                        continue;
                    EXPECT_TRUE(box.text.ends_with("…")) << box.text;
                    EXPECT_FALSE(box.text.ends_with(" …")) << box.text;
                    const std::string beginning = box.text.substr(0, box.text.size() - 3);
                    ASSERT_EQ(name.substr(0, beginning.size()), beginning);
                    // What follows is the first byte of a character.
                    EXPECT_NE(static_cast<unsigned char>(name[beginning.size()]) & 0xC0U, 0x80U);
                    EXPECT_LE(box.rect.right(), width);
                }
            }
        }
    }
}

TEST(Legend, StaysInsidePicturesOfAnySize) {
    for (const LegendPosition position :
         {LegendPosition::OutsideRight, LegendPosition::OutsideTop, LegendPosition::TopLeft}) {
        for (int names = 0; names < 5; ++names) {
            for (int size = 20; size < 300; size += 17) {
                Plot plot;
                for (int i = 0; i < names; ++i)
                    addLine(plot, "name " + std::to_string(i));
                plot.legend().setPosition(position);
                plot.legend().setVisible(true);
                TextBoxPainter painter;
                plot.renderInto(painter, size, 320 - size);
                for (const auto& box : painter.boxes()) {
                    if (box.text.find("name") == std::string::npos &&
                        box.text.find("more") == std::string::npos)
                        continue;
                    EXPECT_GE(box.rect.left(), 0.0) << box.text << " at " << size;
                    EXPECT_LE(box.rect.right(), size) << box.text << " at " << size;
                    EXPECT_GE(box.rect.top(), 0.0) << box.text << " at " << size;
                    EXPECT_LE(box.rect.bottom(), 320.0 - size) << box.text << " at " << size;
                }
            }
        }
    }
}
