// SPDX-License-Identifier: MIT
#include "support/RecordingPainter.h"
#include "support/TickTexts.h"

#include <zembra/chart/Plot.h>
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>
#include <zembra/series/AreaSeries.h>
#include <zembra/series/HeatMapSeries.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using namespace zembra;
using zembra::test::most;
using zembra::test::RecordingPainter;

namespace {

std::string placeOf(const Rect& rect) {
    std::ostringstream text;
    text << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
    return text.str();
}

// The canvas, then every text that begins with a capital or a plus, each with the place of its
// baseline.
std::string layoutOf(Plot& plot, int width, int height) {
    RecordingPainter painter;
    plot.renderInto(painter, width, height);
    std::string text = placeOf(plot.canvasRect());
    for (const std::string& line : painter.lines()) {
        const auto quote = line.find('"');
        if (quote == std::string::npos ||
            std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ+").find(line[quote + 1]) == std::string::npos)
            continue;
        const auto end = line.find('"', quote + 1);
        const auto blank = line.find(' ');
        const bool rotated = line.compare(0, 15, "drawRotatedText") == 0;
        std::string place = line.substr(blank + 1, quote - blank - 2);
        if (rotated)
            place.resize(place.find(' '));
        text += " | " + line.substr(quote + 1, end - quote - 1) + " " + place;
    }
    return text;
}

void addNamed(Plot& plot, const std::string& name) {
    plot.add<LineSeries>(std::vector{0.0, 10.0}, std::vector{0.0, 10.0}, name);
}

void addColors(Plot& plot, double max, const std::string& title = {}) {
    auto map = plot.add<HeatMapSeries>(Grid({0.0, 1.0, 2.0, 3.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
    ColorScale colors;
    colors.setRange(0.0, max);
    colors.setTitle(title);
    map->setColorScale(colors);
}

struct LayoutCase {
    const char* what;
    std::function<void(Plot&)> prepare;
    int width, height;
    const char* layout;
};

void compareLayouts(const std::vector<LayoutCase>& cases) {
    for (const LayoutCase& c : cases) {
        Plot plot;
        for (int id = 0; id < 4; ++id)
            plot.setAxisScale(id, 0.0, 10.0);
        c.prepare(plot);
        EXPECT_EQ(layoutOf(plot, c.width, c.height), c.layout) << c.what;
    }
}

void enableOnly(Plot& plot, std::vector<int> axes) {
    for (int id = 0; id < 4; ++id)
        plot.setAxisEnabled(id, std::find(axes.begin(), axes.end(), id) != axes.end());
}

const std::string manyWords = "Words That Fill More Than Three Of The Lines There Are";

} // namespace

TEST(PlotLayout, AxesTakeRoomForTicksLabelsAndTitles) {
    const auto all = [](Plot& plot) {
        enableOnly(plot, {0, 1, 2, 3});
        const char* const titles[] = {"Left", "Right", "Bottom", "Top"};
        for (int id = 0; id < 4; ++id)
            plot.axis(id).setTitle(titles[id]);
    };
    const auto times = [](Plot& plot) {
        for (const int id : {2, 3}) {
            plot.axis(id).setScale(Scale::time("UTC"));
            plot.setAxisScale(id, 0.0, 86400.0);
        }
    };
    compareLayouts({
        {"none", [](Plot& plot) { enableOnly(plot, {}); }, 300, 200, "12,12 276x176"},
        {"two", [](Plot&) {}, 300, 200, "71,30 205x125"},
        {"left", [](Plot& plot) { enableOnly(plot, {0}); }, 300, 200, "71,30 217x158"},
        {"right", [](Plot& plot) { enableOnly(plot, {1}); }, 300, 200, "12,30 217x158"},
        {"bottom", [](Plot& plot) { enableOnly(plot, {2}); }, 300, 200, "24,12 252x143"},
        {"top", [](Plot& plot) { enableOnly(plot, {3}); }, 300, 200, "24,57 252x131"},
        {"all titles", all, 400, 300,
         "92,80 216x170 | Left 17,180.6 | Right 393,184.5 | Bottom 176.6,293 | Top 188.3,47"},
        {"times", times, 300, 200, "71,30 205x125 | Jan 1 1970 35,193 | Jan 2 1970 227,193"},
        {"times and titles",
         [&](Plot& plot) {
             all(plot);
             times(plot);
         },
         400, 300,
         "92,96 216x138 | Left 17,180.6 | Right 393,184.5 | Jan 1 1970 56,272 | Jan 2 1970 272,272 "
         "| Bottom 176.6,293 | Jan 1 1970 56,67 | Jan 2 1970 272,67 | Top 188.3,47"},
        {"odd sizes",
         [](Plot& plot) {
             Theme theme = Theme::light();
             theme.tickFont = Font::defaultFont(FontFamily::LatoRegular, 11.3);
             plot.setTheme(theme);
         },
         301, 199, "68,29 209x127"},
        {"odd sizes without a vertical axis",
         [](Plot& plot) {
             Theme theme = Theme::light();
             theme.tickFont = Font::defaultFont(FontFamily::LatoRegular, 11.3);
             plot.setTheme(theme);
             enableOnly(plot, {2});
         },
         301, 199, "24,12 253x144"},
    });
}

TEST(PlotLayout, TitlesStandAboveInAsManyLinesAsTheyMayTake) {
    compareLayouts({
        {"title", [](Plot& plot) { plot.setTitle("Title"); }, 300, 200,
         "71,58 205x97 | Title 12,30"},
        {"subtitle", [](Plot& plot) { plot.setSubtitle("Sub"); }, 300, 200,
         "71,47 205x108 | Sub 12,25"},
        {"both",
         [](Plot& plot) {
             plot.setTitle("Title");
             plot.setSubtitle("Sub");
         },
         300, 200, "71,75 205x80 | Title 12,30 | Sub 12,52"},
        {"long",
         [](Plot& plot) {
             plot.setTitle(manyWords);
             plot.setSubtitle(manyWords);
         },
         200, 300,
         "71,138 105x117 | Words That Fill 12,30 | More Than Three 12,53 | Of The Lines The… 12,76 "
         "| Words That Fill More 12,98 | Than Three Of The Lin… 12,115"},
        {"long without room for axis titles",
         [](Plot& plot) {
             plot.setTitle(manyWords);
             plot.setSubtitle(manyWords);
             plot.axis(2).setTitle("Bottom");
         },
         200, 140, "71,58 105x37 | Words That Fill… 12,30"},
    });
}

TEST(PlotLayout, LegendsStandInTheirCornerOrBesideTheCanvas) {
    const auto at = [](LegendPosition position) {
        return [position](Plot& plot) {
            addNamed(plot, "One");
            addNamed(plot, "Two");
            plot.legend().setPosition(position);
        };
    };
    const auto many = [](LegendPosition position, int count) {
        return [position, count](Plot& plot) {
            for (int i = 0; i < count; ++i)
                addNamed(plot, "Name" + std::string(static_cast<std::size_t>(i % 4), 'x'));
            plot.legend().setPosition(position);
        };
    };
    const auto alone = [](const std::function<void(Plot&)>& prepare) {
        return [prepare](Plot& plot) {
            prepare(plot);
            enableOnly(plot, {});
        };
    };
    compareLayouts({
        {"automatic", at(LegendPosition::Automatic), 300, 200,
         "71,30 205x125 | One 114,57 | Two 114,73"},
        {"top left", at(LegendPosition::TopLeft), 300, 200,
         "71,30 205x125 | One 114,57 | Two 114,73"},
        {"top right", at(LegendPosition::TopRight), 300, 200,
         "71,30 205x125 | One 239,57 | Two 239,73"},
        {"bottom left", at(LegendPosition::BottomLeft), 300, 200,
         "71,30 205x125 | One 114,120 | Two 114,136"},
        {"bottom right", at(LegendPosition::BottomRight), 300, 200,
         "71,30 205x125 | One 239,120 | Two 239,136"},
        {"right", at(LegendPosition::OutsideRight), 300, 200,
         "71,30 137x125 | One 267,49 | Two 267,65"},
        {"top", at(LegendPosition::OutsideTop), 300, 200,
         "71,49 205x106 | One 40,27 | Two 105.6,27"},
        {"right of a second axis",
         [&](Plot& plot) {
             at(LegendPosition::OutsideRight)(plot);
             enableOnly(plot, {0, 1, 2});
         },
         300, 200, "71,30 90x125 | One 267,49 | Two 267,65"},
        {"rows", many(LegendPosition::OutsideTop, 5), 300, 200,
         "71,65 205x90 | Name 40,27 | Namex 112.8,27 | Namexx 192.8,27 | Namexxx 40,43 | Name "
         "134.4,43"},
        {"too many for rows", many(LegendPosition::OutsideTop, 30), 300, 200,
         "71,81 205x74 | Name 40,27 | Namex 112.8,27 | Namexx 192.8,27 | Namexxx 40,43 | Name "
         "134.4,43 | Namex 207.2,43 | Namexx 40,59 | Namexxx 127.2,59 | + 22 more 221.6,59"},
        {"too many for a column", many(LegendPosition::OutsideRight, 30), 300, 200,
         "71,30 101x125 | Name 231,49 | Namex 231,65 | Namexx 231,81 | Namexxx 231,97 | Name "
         "231,113 | + 25 mo… 231,129"},
        {"too many for a corner", many(LegendPosition::TopLeft, 30), 300, 200,
         "71,30 205x125 | Name 114,57 | Namex 114,73 | Namexx 114,89 | Namexxx 114,105 | + 26 more "
         "114,121"},
        {"too wide", many(LegendPosition::TopRight, 4), 140, 200, "71,30 45x125"},
        {"as many as have room in a corner", alone(many(LegendPosition::TopLeft, 2)), 200, 82,
         "12,12 176x58 | Name 55,39 | Namex 55,55"},
        {"one too many for a corner", alone(many(LegendPosition::TopLeft, 2)), 200, 81,
         "12,12 176x57 | + 2 more 55,39"},
        {"room for one line in a corner", alone(many(LegendPosition::TopLeft, 2)), 200, 62,
         "12,12 176x38 | + 2 more 55,39"},
        {"room for none in a corner", alone(many(LegendPosition::TopLeft, 2)), 200, 61,
         "12,12 176x37"},
        {"narrow corner", alone(many(LegendPosition::TopLeft, 2)), 134, 200,
         "12,12 110x176 | Na… 55,39 | Na… 55,55"},
        {"corner too narrow", alone(many(LegendPosition::TopLeft, 2)), 133, 200, "12,12 109x176"},
        {"narrow rows", alone(many(LegendPosition::OutsideTop, 2)), 76, 200,
         "12,47 52x141 | Na… 40,27 | Na… 40,43"},
        {"rows too narrow", alone(many(LegendPosition::OutsideTop, 2)), 75, 200, "12,15 51x173"},
        {"a name that fills a row", alone(many(LegendPosition::OutsideTop, 3)), 96, 200,
         "12,63 72x125 | Name 40,27 | Namex 40,43 | Namexx 40,59"},
        {"a name wider than a row", alone(many(LegendPosition::OutsideTop, 3)), 95, 200,
         "12,63 71x125 | Name 40,27 | Namex 40,43 | Name… 40,59"},
        {"a last name without room", alone(many(LegendPosition::OutsideTop, 7)), 239, 200,
         "12,63 215x125 | Name 40,27 | Namex 112.8,27 | Namexx 40,43 | Namexxx 127.2,43 | Name "
         "40,59 | + 2 more 112.8,59"},
        {"rows of a name each", alone(many(LegendPosition::OutsideTop, 4)), 103, 200,
         "12,63 79x125 | Name 40,27 | Namex 40,43 | + 2 mo… 40,59"},
    });
}

TEST(PlotLayout, ColorBarsStandInARowOnTheRight) {
    compareLayouts({
        {"one", [](Plot& plot) { addColors(plot, 3.0); }, 300, 200, "71,30 156x125"},
        {"titled", [](Plot& plot) { addColors(plot, 3.0, "Colors"); }, 300, 200,
         "71,30 135x125 | Colors 269,115.9"},
        {"two",
         [](Plot& plot) {
             addColors(plot, 3.0, "Colors");
             addColors(plot, 1000.0, "More");
         },
         600, 200, "71,30 344x125 | Colors 478,115.9 | More 569,108.1"},
        {"one of two",
         [](Plot& plot) {
             addColors(plot, 3.0, "Colors");
             addColors(plot, 1000.0, "More");
         },
         250, 200, "71,30 85x125 | Colors 219,115.9"},
        {"beside a second axis and a legend",
         [](Plot& plot) {
             enableOnly(plot, {0, 1, 2});
             plot.axis(1).setTitle("Right");
             addColors(plot, 3.0, "Colors");
             addNamed(plot, "One");
             addNamed(plot, "Two");
             plot.legend().setPosition(LegendPosition::OutsideRight);
         },
         400, 200, "71,30 99x125 | Right 255,112 | Colors 325,115.9 | One 367,49 | Two 367,65"},
    });
}

TEST(PlotLayout, DetailsAreLeftOutWhereTheCanvasWouldBeSmallerThanTwentyEightPixels) {
    for (const bool tall : {false, true}) {
        Plot plot;
        plot.setTitle("Title");
        plot.axis(2).setTitle("Bottom");
        plot.setAxisScale(0, 0.0, 10.0);
        double before = 1000.0;
        std::size_t texts = 1000;
        int changes = 0;
        for (int size = 300; size > 20; --size) {
            RecordingPainter painter;
            plot.renderInto(painter, tall ? size : 300, tall ? 300 : size);
            const Rect canvas = plot.canvasRect();
            const double side = std::min(canvas.width, canvas.height);
            const std::size_t titles = painter.text().find("Title") != std::string::npos ? 2 : 1;
            const std::size_t now = painter.count("drawText") == 0 ? 0 : titles;
            if (now > 0) {
                EXPECT_GE(side, 28.0) << size;
            }
            if (now < texts && texts < 1000) {
                EXPECT_EQ(before, 28.0) << size;
                ++changes;
            }
            texts = now;
            before = side;
        }
        EXPECT_EQ(changes, tall ? 1 : 2);
    }
}

TEST(PlotLayout, AxesHaveAsManyTicksAsTheirLengthHasRoomFor) {
    for (int size = 160; size < 6000; size += size < 1000 ? 31 : 441) {
        Plot plot;
        plot.setAxisScale(0, 0.0, 97.0);
        plot.setAxisScale(2, 0.0, 97.0);
        RecordingPainter painter;
        plot.renderInto(painter, size, size);
        const Rect canvas = plot.canvasRect();
        // Three and five times the size of the font apart.
        const auto count = [](double length, double distance) {
            const int wanted = std::clamp(static_cast<int>(length / distance) + 1, 3, 60);
            return Scale().ticks(0.0, 97.0, most(wanted)).major.size();
        };
        EXPECT_EQ(painter.count("drawText"), count(canvas.height, 36.0) + count(canvas.width, 60.0))
            << size;
    }
}

TEST(PlotLayout, LabelsKeepTheirDistanceAndTwoAreShownWhereTwoFit) {
    int alone = 0;
    int several = 0;
    for (int size = 80; size < 420; size += 3) {
        for (const std::size_t length : {3u, 5u, 9u, 16u}) {
            Plot plot;
            enableOnly(plot, {2});
            plot.setAxisScale(2, 0.5, 9.7);
            plot.axis(2).setNumberFormat(NumberFormat::custom([length](double v) {
                const std::string digits = std::to_string(static_cast<int>(100.0 * v));
                return std::string(length - digits.size(), 'x') + digits;
            }));
            RecordingPainter painter;
            plot.renderInto(painter, size, 120);
            std::vector<double> places;
            for (const std::string& line : painter.linesOf("drawText"))
                places.push_back(std::stod(line.substr(line.find(' '))));
            // Characters of 7.2 pixels, and a gap of 9.6.
            const double least = 7.2 * static_cast<double>(length) + 9.6;
            for (std::size_t i = 1; i < places.size(); ++i)
                EXPECT_GE(places[i] - places[i - 1], least - 0.1) << size << " " << length;
            const double pixels = plot.canvasRect().width / 9.2;
            // Of the steps that bring more than one label, two is the longest.
            if (places.size() == 1) {
                ++alone;
                EXPECT_LT(2.0 * pixels, least) << size << " " << length;
            }
            several += places.size() > 1 ? 1 : 0;
        }
    }
    EXPECT_GT(alone, 10);
    EXPECT_GT(several, 100);
}

TEST(PlotLayout, YearsNeedOneLineThoughTheMonthsThatFoundNoRoomNeedTwo) {
    Plot plot;
    enableOnly(plot, {0});
    plot.axis(0).setScale(Scale::time("UTC"));
    // From September 2020 to February 2022.
    plot.setAxisScale(0, 1.6e9, 1.6e9 + 4.38244e7);
    RecordingPainter painter;
    plot.renderInto(painter, 200, 78);
    const auto texts = painter.linesOf("drawText");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_NE(texts[0].find("\"2021\""), std::string::npos);
    EXPECT_NE(texts[1].find("\"2022\""), std::string::npos);
}

TEST(PlotLayout, CategoriesAreAllNamedAsLongAsTheirNamesKeepTheirDistance) {
    for (const bool horizontal : {false, true}) {
        int changes = 0;
        bool before = false;
        for (int size = horizontal ? 470 : 180; size < (horizontal ? 530 : 230); ++size) {
            Plot plot;
            const int id = horizontal ? 2 : 0;
            enableOnly(plot, {id});
            plot.axis(id).setScale(Scale::categorical(std::vector<std::string>(10, "12345")));
            plot.setAxisScale(id, -0.5, 9.5);
            RecordingPainter painter;
            plot.renderInto(painter, horizontal ? size : 200, horizontal ? 200 : size);
            const Rect canvas = plot.canvasRect();
            // Five characters of 7.2 pixels and a gap of 9.6, or a line of 16.
            const bool all =
                horizontal ? canvas.width / 10.0 >= 45.6 : canvas.height / 10.0 >= 16.0;
            // Right at the limit, rounding decides.
            if (horizontal ? canvas.width != 456.0 : canvas.height != 160.0) {
                EXPECT_EQ(painter.count("drawText") == 10, all) << size;
            }
            changes += all != before ? 1 : 0;
            before = all;
        }
        EXPECT_EQ(changes, 1);
    }
}

TEST(PlotLayout, EveryNameOfALegendIsShownOrCounted) {
    for (const LegendPosition position :
         {LegendPosition::TopLeft, LegendPosition::OutsideRight, LegendPosition::OutsideTop}) {
        int shownOnce = 0;
        int countedOnce = 0;
        for (int size = 330; size < 700; size += 17) {
            for (const int names : {1, 2, 3, 7, 12}) {
                Plot plot;
                for (int i = 0; i < names; ++i)
                    addNamed(plot, "Name" + std::string(static_cast<std::size_t>(i), 'x'));
                plot.legend().setVisible(true);
                plot.legend().setPosition(position);
                RecordingPainter painter;
                plot.renderInto(painter, size, std::min(size, 260));
                int shown = 0;
                int counted = 0;
                for (const std::string& line : painter.linesOf("drawText")) {
                    const auto more = line.find("\"+ ");
                    if (line.find("\"N") != std::string::npos)
                        ++shown;
                    else if (more != std::string::npos)
                        counted += std::stoi(line.substr(more + 3));
                }
                if (shown + counted > 0) {
                    EXPECT_EQ(shown + counted, names) << size;
                }
                EXPECT_NE(counted, 1) << "One more takes the line of its name." << size;
                shownOnce += shown == names ? 1 : 0;
                countedOnce += counted > 0 ? 1 : 0;
            }
        }
        EXPECT_GT(shownOnce, 30);
        EXPECT_GT(countedOnce, 5);
    }
}

TEST(PlotLayout, NamesOfALegendFillItsRowsToTheLastPixel) {
    // Keys of 22 pixels, 6 beside them, names of 36 and 16 between: 144, and 12 at either edge. A
    // count takes 57.6 pixels instead of 36.
    struct Row {
        int names, size;
        const char* legend;
    };
    const std::string four = "| Names 40,27 | Names 120,27 | Names 40,43 | Names 120,43 ";
    for (const Row& row : {Row{2, 168, "| Names 40,27 | Names 120,27"},
                           {2, 167, "| Names 40,27 | Names 40,43"},
                           {3, 167, "| Names 40,27 | Names 40,43 | Names 40,59"},
                           {4, 167, "| Names 40,27 | Names 40,43 | + 2 more 40,59"},
                           {6, 168, "4| Names 40,59 | Names 120,59"},
                           {7, 168, "4| + 3 more 40,59"},
                           {7, 190, "4| Names 40,59 | + 2 more 120,59"},
                           {7, 189, "4| + 3 more 40,59"}}) {
        Plot plot;
        enableOnly(plot, {});
        for (int i = 0; i < row.names; ++i)
            addNamed(plot, "Names");
        plot.legend().setPosition(LegendPosition::OutsideTop);
        const std::string text = layoutOf(plot, row.size, 260);
        const std::string expected = row.legend;
        EXPECT_EQ(text.substr(std::min(text.find('|'), text.size())),
                  expected[0] == '4' ? four + expected.substr(1) : expected)
            << row.names << " " << row.size;
    }
}

TEST(PlotLayout, ALegendAboveTheCanvasHasThreeRowsAtMostAndStaysInThePicture) {
    for (int size = 80; size < 700; size += 13) {
        for (const std::size_t names : {2u, 4u, 5u, 9u, 30u}) {
            Plot plot;
            enableOnly(plot, {});
            for (std::size_t i = 0; i < names; ++i)
                addNamed(plot, "N" + std::string(i * 7 % 15, 'x'));
            plot.legend().setPosition(LegendPosition::OutsideTop);
            RecordingPainter painter;
            plot.renderInto(painter, size, 260);
            std::set<double> rows;
            for (const std::string& line : painter.linesOf("drawText")) {
                const auto quote = line.find('"');
                const std::string text =
                    line.substr(quote + 1, line.find('"', quote + 1) - quote - 1);
                const auto dots = text.find("…");
                const std::size_t length = dots == std::string::npos ? text.size() : dots + 1;
                EXPECT_LE(std::stod(line.substr(9)) + 7.2 * static_cast<double>(length),
                          size - 12.0 + 0.01)
                    << text;
                rows.insert(std::stod(line.substr(line.find(',') + 1)));
            }
            EXPECT_LE(rows.size(), 3u) << size << " " << names;
            EXPECT_GE(rows.size(), 1u) << size << " " << names;
        }
    }
}

TEST(PlotLayout, KeysOfALegendLeaveTwoPixelsAboveAndBelow) {
    Plot plot;
    enableOnly(plot, {});
    auto area = plot.add<AreaSeries>(std::vector{0.0, 10.0}, std::vector{0.0, 10.0}, "Area");
    plot.legend().setVisible(true);
    plot.legend().setPosition(LegendPosition::OutsideTop);
    RecordingPainter painter;
    plot.renderInto(painter, 300, 200);
    EXPECT_NE(painter.text().find("fillRect 12,17 22x12"), std::string::npos) << painter.text();
}

TEST(PlotLayout, NamesKeepApartFromTheLongestOfThem) {
    for (const std::size_t longest : {0u, 1u, 5u, 9u}) {
        Plot plot;
        enableOnly(plot, {2});
        std::vector<std::string> names(10, "1");
        names[longest] = "12345678";
        plot.axis(2).setScale(Scale::categorical(names));
        plot.setAxisScale(2, -0.5, 9.5);
        // Room for one character and its gap, but not beside eight of them.
        RecordingPainter painter;
        plot.renderInto(painter, 380, 200);
        EXPECT_LT(painter.count("drawText"), 10u) << longest;
    }
}
