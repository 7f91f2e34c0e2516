// SPDX-License-Identifier: MIT
#include "support/RecordingPainter.h"

#include <zembra/chart/Plot.h>
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

// Characters are 7.2 pixels wide and their lines 16 pixels high.

using namespace zembra;
using zembra::test::RecordingPainter;

namespace {

constexpr int vertical = 0;
constexpr int horizontal = 2;

// A plot of one axis, made as long as a test wants.
struct LoneAxis {
    explicit LoneAxis(int id, const Scale& scale = Scale()) : id(id) {
        for (int other = 0; other < 4; ++other)
            plot.setAxisEnabled(other, other == id);
        axis().setScale(scale);
    }

    Axis& axis() { return plot.axis(id); }

    // The labels of an axis of that length, each with its place along the axis.
    std::vector<std::pair<std::string, double>> labels(int length) {
        RecordingPainter painter;
        const bool isUpright = id == vertical;
        plot.renderInto(painter, isUpright ? 300 : length + 48, isUpright ? length + 42 : 200);
        EXPECT_EQ(isUpright ? plot.canvasRect().height : plot.canvasRect().width, length);
        std::vector<std::pair<std::string, double>> found;
        for (const std::string& line : painter.linesOf("drawText")) {
            const auto quote = line.find('"');
            const auto place = line.find(isUpright ? ',' : ' ') + 1;
            found.emplace_back(line.substr(quote + 1, line.find('"', quote + 1) - quote - 1),
                               std::stod(line.substr(place)));
        }
        return found;
    }
    std::string text(int length) {
        std::string all;
        for (const auto& [label, place] : labels(length))
            all += (all.empty() ? "" : " ") + label;
        return all;
    }
    std::string text(double min, double max, int length) {
        axis().setRange(min, max);
        return text(length);
    }
    std::size_t count(double min, double max, int length) {
        axis().setRange(min, max);
        return labels(length).size();
    }

    int id;
    Plot plot;
};

Scale namesOfLength(std::size_t count, std::size_t length) {
    return Scale::categorical(std::vector<std::string>(count, std::string(length, 'n')));
}

std::string wholeNumber(double v) {
    return std::to_string(static_cast<int>(v));
}

// Numbers, but for one that has a longer text.
NumberFormat withALongText(double where, std::size_t length) {
    return NumberFormat::custom([where, length](double v) {
        return v == where ? std::string(length, 'x') : wholeNumber(v);
    });
}

} // namespace

TEST(AxisLayout, WantsThreeTicksOnAShortAxisAndSixtyOnALongOne) {
    struct Row {
        int length;
        double max;
        std::size_t count;
    };
    // Four would be 0, 20, 40 and 60; ones apart, there are sixty of them below 59.5.
    for (const Row& row : {Row{70, 70.0, 2}, {2400, 59.5, 60}, {2400, 60.5, 31}})
        EXPECT_EQ(LoneAxis(vertical).count(0.0, row.max, row.length), row.count) << row.max;
}

TEST(AxisLayout, NamesUpToTwoHundredCategoriesAndThenEverySecondOne) {
    for (const std::size_t names : {200u, 201u}) {
        LoneAxis lone(vertical, namesOfLength(names, 5));
        EXPECT_EQ(lone.count(-0.5, static_cast<double>(names) - 0.5, 4000),
                  names == 200 ? 200u : 101u);
    }
}

TEST(AxisLayout, NamesMoreCategoriesTheSmallerTheFontDownToAPixelEach) {
    LoneAxis lone(vertical, namesOfLength(60, 1));
    Theme theme = Theme::light();
    theme.tickFont = Font::defaultFont(FontFamily::LatoRegular, 0.5);
    lone.plot.setTheme(theme);
    lone.axis().setRange(-0.5, 59.5);
    RecordingPainter painter;
    lone.plot.renderInto(painter, 300, 100);
    EXPECT_EQ(painter.count("drawText"), 60u);
}

TEST(AxisLayout, LabelsMayStandRightAtTheirDistanceButNoCloser) {
    LoneAxis lone(vertical, namesOfLength(8, 5));
    EXPECT_EQ(lone.count(-0.5, 7.5, 8 * 16), 8u);
    EXPECT_EQ(lone.count(-0.5, 7.5, 8 * 16 - 1), 4u);
}

TEST(AxisLayout, DatesOnAVerticalAxisStandTwoLinesApart) {
    LoneAxis lone(vertical, Scale::time("UTC"));
    lone.axis().setRange(-1.0, 10.0 * 86400.0);
    double least = 1000.0;
    for (int length = 60; length < 400; ++length) {
        std::vector<double> places;
        for (const auto& [label, place] : lone.labels(length))
            // Not what tells the year of a day or the day of an hour.
            if (label.substr(0, 4) == "Jan " && label.size() <= 6)
                places.push_back(place);
        // The first one is moved away from the lower end of the axis.
        for (std::size_t i = 2; i < places.size(); ++i) {
            EXPECT_GE(places[i - 1] - places[i], 31.99) << length;
            least = std::min(least, places[i - 1] - places[i]);
        }
    }
    EXPECT_LT(least, 33.0);
}

TEST(AxisLayout, ThinsLabelsUntilTheyFit) {
    struct Row {
        std::size_t length, count;
    };
    // Ten names sixty pixels apart, of which each one, and then every second, third, fifth and
    // tenth has room.
    for (const Row& row : {Row{6, 10}, {12, 5}, {20, 4}, {30, 2}, {50, 1}}) {
        LoneAxis lone(horizontal, namesOfLength(10, row.length));
        lone.axis().setRange(-3.0, 12.0);
        RecordingPainter painter;
        lone.plot.renderInto(painter, 948, 200);
        EXPECT_EQ(painter.count("drawText"), row.count) << row.length;
        // A line along the axis, and with each label a tick and a line of the grid.
        EXPECT_EQ(painter.count("drawLine"), 1 + 2 * row.count) << row.length;
    }
}

TEST(AxisLayout, TellsTheLabelsThatAreLeftFromThoseThatWereTriedBefore) {
    std::vector<std::string> names(10, "n");
    names[1] = std::string(25, 'n');
    // Only the second name is too long, and gone when every second one is shown.
    EXPECT_EQ(LoneAxis(horizontal, Scale::categorical(names)).text(-0.5, 9.5, 590), "n n n n n");
}

TEST(AxisLayout, LooksForASecondLabelAmongTicksUpToSixMoreThanWanted) {
    // Only every third number has a label, which needs a tick at each: nine or ten instead of
    // three.
    for (const double max : {8.5, 9.5}) {
        LoneAxis lone(vertical);
        lone.axis().setNumberFormat(NumberFormat::custom([](double v) {
            return static_cast<int>(v) % 3 == 1 ? wholeNumber(v) : std::string();
        }));
        EXPECT_EQ(lone.text(0.0, max, 71), max == 8.5 ? "1 4 7" : "");
    }
}

TEST(AxisLayout, TwoLabelsAreEnoughWhereOneWasLeft) {
    LoneAxis lone(horizontal);
    lone.axis().setNumberFormat(NumberFormat::custom(
        [](double v) { return v > 0.0 && v < 10.0 ? std::string(90, 'x') : wholeNumber(v); }));
    EXPECT_EQ(lone.text(0.0, 10.0, 592), "0 10");
    // Tens would leave 20 alone.
    EXPECT_EQ(lone.text(11.0, 21.0, 592), "15 20");
}

TEST(AxisLayout, TicksOnceThinnedStayThinWhileTheSpanStaysToAMillionth) {
    struct Row {
        double min, max;
        bool staysThin;
    };
    for (const Row& row : {Row{0.0, 1e6, true},
                           {2e6, 3e6, true},
                           {0.0, 1'000'001.0, true},
                           {0.0, 1'000'001.1, false},
                           {0.0, 999'998.9, false},
                           {-2e6, 1e6, false}}) {
        LoneAxis lone(horizontal);
        LoneAxis other(horizontal);
        for (LoneAxis* each : {&lone, &other})
            each->axis().setNumberFormat(withALongText(10e6, 40));
        EXPECT_EQ(lone.count(9.5e6, 10.5e6, 592), 3u);
        EXPECT_EQ(lone.count(row.min, row.max, 592) < other.count(row.min, row.max, 592),
                  row.staysThin)
            << row.max;
    }
}

TEST(AxisLayout, ARangeThatIsNoWayOnTheEvenMeasureHasLabels) {
    LoneAxis numbers(horizontal, Scale::log());
    for (const double min : {1e10, 3.7e200, 1.0, 12345.0}) {
        const double max = std::nextafter(min, HUGE_VAL);
        EXPECT_GE(numbers.count(min, max, 400), 1u) << min;
    }
}

TEST(AxisLayout, ThinnedTicksAndRoomForLabelsBeginAnewWithFormatLengthAndFont) {
    const std::vector<std::function<void(LoneAxis&)>> changes = {
        [](LoneAxis& lone) { lone.axis().setNumberFormat(NumberFormat::custom(wholeNumber)); },
        [](LoneAxis& lone) { lone.plot.setAxisEnabled(0, true); },
        [](LoneAxis& lone) {
            Theme theme = lone.plot.theme();
            theme.tickFont = Font::defaultFont(FontFamily::LatoRegular, 11.5);
            lone.plot.setTheme(theme);
        },
        [](LoneAxis&) {},
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        LoneAxis lone(horizontal);
        lone.axis().setNumberFormat(withALongText(1000.0, 40));
        EXPECT_EQ(lone.count(995.0, 1005.0, 592), 3u);
        changes[i](lone);
        lone.axis().setRange(0.0, 10.0);
        RecordingPainter painter;
        lone.plot.setAxisScale(0, 0.0, 1.0);
        lone.plot.renderInto(painter, 640, 200);
        const auto texts = painter.text();
        EXPECT_EQ(texts.find("\"2\"") != std::string::npos, i + 1 < changes.size()) << i;
    }
}

TEST(AxisLayout, LabelsLongerThanUsualTakeTheirRoomInStepsOfSixteenPixels) {
    struct Row {
        std::size_t length;
        double room;
    };
    // Up to eight characters need no more than is always there.
    for (const Row& row : {Row{3, 58}, {8, 58}, {9, 80}, {11, 80}, {12, 96}, {15, 112}}) {
        LoneAxis lone(vertical);
        lone.axis().setRange(0.0, 10.0);
        lone.axis().setNumberFormat(NumberFormat::custom([&row](double v) {
            const std::string digits = wholeNumber(v);
            return std::string(row.length - digits.size(), 'x') + digits;
        }));
        lone.labels(200);
        // Ticks of five pixels, and four on either side of the labels.
        EXPECT_EQ(lone.plot.canvasRect().x, row.room + 13.0) << row.length;
    }
}
