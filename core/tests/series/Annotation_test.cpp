// SPDX-License-Identifier: MIT
#include <zembra/chart/Plot.h>
#include <zembra/series/ArrowAnnotation.h>
#include <zembra/series/LineAnnotation.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/ShapeAnnotation.h>
#include <zembra/series/SpanAnnotation.h>
#include <zembra/series/TextAnnotation.h>

#include "support/HostileNumbers.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

const Position middle{5.0, 5.0};

std::vector<std::shared_ptr<Series>> oneOfEach(Coordinate a, Coordinate b) {
    std::vector<std::shared_ptr<Series>> all;
    for (const auto direction : {AcrossCanvas::Horizontal, AcrossCanvas::Vertical}) {
        all.push_back(std::make_shared<LineAnnotation>(direction, a, "label"));
        all.push_back(std::make_shared<SpanAnnotation>(direction, a, b, "label"));
    }
    all.push_back(std::make_shared<TextAnnotation>(Position{a, b}, "text"));
    all.push_back(std::make_shared<ArrowAnnotation>(Position{a, b}, Position{b, a}));
    for (const auto shape :
         {AnnotationShape::Rectangle, AnnotationShape::Ellipse, AnnotationShape::Polygon})
        all.push_back(std::make_shared<ShapeAnnotation>(
            shape, std::vector<Position>{{a, b}, {b, a}, middle}));
    return all;
}

std::string drawn(const Series& series) {
    Stage stage;
    return stage.draw(series);
}

} // namespace

TEST(Annotation, HasNoPartInAutomaticRangesAndNoNearestSample) {
    Plot plot;
    plot.add<LineSeries>(std::vector{1.0, 2.0}, std::vector{3.0, 4.0});
    const auto x = plot.axis(2).range();
    const auto y = plot.axis(0).range();
    for (const auto& annotation : oneOfEach(-1000.0, 1000.0)) {
        plot.addSeries(annotation);
        EXPECT_FALSE(Stage().nearest(*annotation, {50.0, 50.0}));
    }
    EXPECT_EQ(plot.axis(2).range(), x);
    EXPECT_EQ(plot.axis(0).range(), y);
}

TEST(Annotation, TakesTheColorOfTextsUnlessItHasItsOwn) {
    for (const auto& annotation : oneOfEach(2.0, 8.0)) {
        EXPECT_NE(drawn(*annotation).find("#000000"), std::string::npos);
        annotation->setColor(Color(1, 2, 3));
        EXPECT_NE(drawn(*annotation).find("#010203"), std::string::npos);
        Stage stage;
        EXPECT_NE(stage.drawKey(*annotation).find("#010203"), std::string::npos);
    }
}

TEST(Annotation, DrawsNothingWithoutAPlace) {
    for (const double bad : {notANumber, HUGE_VAL}) {
        for (const auto& annotation : oneOfEach(bad, 5.0)) {
            const std::string text = drawn(*annotation);
            EXPECT_EQ(text.find("draw"), std::string::npos) << text;
            EXPECT_EQ(text.find("fill"), std::string::npos) << text;
        }
        for (const auto& annotation : oneOfEach(Coordinate::canvas(bad), 5.0)) {
            const std::string text = drawn(*annotation);
            EXPECT_EQ(text.find("draw"), std::string::npos) << text;
            EXPECT_EQ(text.find("fill"), std::string::npos) << text;
        }
    }
}

TEST(Annotation, SharesOfTheCanvasDoNotMoveWithTheAxes) {
    const LineAnnotation line(AcrossCanvas::Horizontal, Coordinate::canvas(0.25));
    Stage usual;
    Stage turned(Scale::linear(), 10.0, 0.0, Scale::log(), 1e6, 1.0);
    EXPECT_EQ(usual.draw(line), turned.draw(line));
    EXPECT_NE(usual.draw(line).find("0,75 "), std::string::npos) << usual.draw(line);
}

TEST(Annotation, HostileNumbersAreHarmless) {
    for (const HostileRow& row : hostileRows())
        for (std::size_t i = 1; i < row.values.size() && i < 8; ++i) {
            for (const auto& annotation : oneOfEach(row.values[i - 1], row.values[i]))
                expectHarmless(*annotation, row.name);
            for (const auto& annotation : oneOfEach(Coordinate::canvas(row.values[i]), 1.0))
                expectHarmless(*annotation, row.name + " of the canvas");
        }
}

TEST(LineAnnotation, RunsFromEdgeToEdgeWithItsLabelAbove) {
    LineAnnotation line(AcrossCanvas::Horizontal, 4.0, "limit");
    line.setStyle(PenStyle::Solid);
    const std::string text = drawn(line);
    EXPECT_NE(text.find("drawPolyline 0,60 100,60"), std::string::npos) << text;
    // Five characters of 7.2 pixels end 4 pixels before the edge.
    EXPECT_NE(text.find("drawText 60,56 \"limit\""), std::string::npos) << text;
    line.setPosition(9.5);
    EXPECT_NE(drawn(line).find("drawText 60,21 \"limit\""), std::string::npos) << drawn(line);
    line.setPosition(11.0);
    EXPECT_EQ(drawn(line).find("drawText"), std::string::npos) << drawn(line);
}

TEST(LineAnnotation, AVerticalOneStandsAtAnX) {
    LineAnnotation line(AcrossCanvas::Vertical, 3.0, "now");
    line.setStyle(PenStyle::Solid);
    EXPECT_NE(drawn(line).find("drawPolyline 30,100 30,0"), std::string::npos) << drawn(line);
    EXPECT_NE(drawn(line).find("drawText 34,16 \"now\""), std::string::npos) << drawn(line);
    // Without room to the right the label stands to the left.
    line.setPosition(9.0);
    EXPECT_NE(drawn(line).find("drawText 64.4,16 \"now\""), std::string::npos) << drawn(line);
}

TEST(LineAnnotation, OddWidthsAreIgnored) {
    LineAnnotation line(AcrossCanvas::Vertical, 3.0);
    line.setWidth(2.0);
    for (const double bad : {-1.0, notANumber, HUGE_VAL})
        line.setWidth(bad);
    EXPECT_EQ(line.width(), 2.0);
}

TEST(SpanAnnotation, CoversTheCanvasBetweenTwoPlacesInEitherOrder) {
    EXPECT_EQ(drawn(SpanAnnotation(AcrossCanvas::Vertical, 2.0, 6.0)),
              "fillRect 20,0 40x100 #0000001a\n");
    EXPECT_EQ(drawn(SpanAnnotation(AcrossCanvas::Vertical, 6.0, 2.0)),
              "fillRect 20,0 40x100 #0000001a\n");
    EXPECT_EQ(drawn(SpanAnnotation(AcrossCanvas::Horizontal, -5.0, 5.0)),
              "fillRect 0,50 100x50 #0000001a\n");
    EXPECT_EQ(drawn(SpanAnnotation(AcrossCanvas::Horizontal, 11.0, 12.0)), "");
    EXPECT_EQ(drawn(SpanAnnotation(AcrossCanvas::Horizontal, 3.0, 3.0)), "");
}

TEST(SpanAnnotation, ShowsItsLabelWhereItFits) {
    const std::string wide = drawn(SpanAnnotation(AcrossCanvas::Vertical, 2.0, 8.0, "night"));
    EXPECT_NE(wide.find("drawText 24,16 \"night\""), std::string::npos) << wide;
    const std::string narrow = drawn(SpanAnnotation(AcrossCanvas::Vertical, 2.0, 4.0, "night"));
    EXPECT_EQ(narrow.find("drawText"), std::string::npos) << narrow;
}

TEST(TextAnnotation, IsTiedToItsPlace) {
    TextAnnotation note(middle, "top");
    note.setOffset({20.0, -20.0});
    const std::string text = drawn(note);
    EXPECT_NE(text.find("fillEllipse 50,50 2x2 #000000"), std::string::npos) << text;
    EXPECT_NE(text.find("50,50\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\"top\""), std::string::npos) << text;
}

TEST(TextAnnotation, OnItsPlaceThereIsNoLine) {
    TextAnnotation note(middle, "top");
    note.setOffset({0.0, 0.0});
    note.setOffset({notANumber, 3.0});
    note.setOffset({3.0, HUGE_VAL});
    const std::string text = drawn(note);
    EXPECT_EQ(text.find("Polyline"), std::string::npos) << text;
    EXPECT_EQ(text.find("Ellipse"), std::string::npos) << text;
    EXPECT_NE(text.find("\"top\""), std::string::npos) << text;
}

TEST(TextAnnotation, IsKeptOnTheCanvasAndGoesWithItsPlace) {
    TextAnnotation note({9.9, 9.9}, "corner");
    EXPECT_NE(drawn(note).find("\"corner\""), std::string::npos) << drawn(note);
    note.setPlace({10.1, 5.0});
    EXPECT_EQ(drawn(note), "");
    note.setPlace(middle);
    note.setText("far too long for a canvas of a hundred pixels");
    EXPECT_EQ(drawn(note), "");
    note.setText("");
    EXPECT_EQ(drawn(note), "");
}

TEST(ArrowAnnotation, PointsWithItsHeadAtTheEnd) {
    const std::string text = drawn(ArrowAnnotation({2.0, 5.0}, {8.0, 5.0}));
    EXPECT_NE(text.find("drawPolyline 20,50 71,50"), std::string::npos) << text;
    EXPECT_NE(text.find("fillPolygon #000000 80,50 71,53.6 71,46.4"), std::string::npos) << text;
    EXPECT_EQ(drawn(ArrowAnnotation(middle, middle)), "");
}

TEST(ArrowAnnotation, FollowsItsEndsAndItsWidth) {
    ArrowAnnotation arrow(middle, middle);
    arrow.setEnds({2.0, 5.0}, {8.0, 5.0});
    EXPECT_EQ(drawn(arrow), drawn(ArrowAnnotation({2.0, 5.0}, {8.0, 5.0})));
    const std::string thin = drawn(arrow);
    arrow.setWidth(4.0);
    EXPECT_NE(drawn(arrow), thin);
    for (const double bad : {-1.0, notANumber, HUGE_VAL})
        arrow.setWidth(bad);
    EXPECT_EQ(arrow.width(), 4.0);
}

TEST(ShapeAnnotation, CanDoWithoutOutlineOrFillingInEveryShape) {
    const struct {
        AnnotationShape shape;
        const char* fill;
        const char* outline;
    } cases[] = {
        {AnnotationShape::Rectangle, "fillRect", "drawRect"},
        {AnnotationShape::Ellipse, "fillEllipse", "drawEllipse"},
        {AnnotationShape::Polygon, "fillPolygon", "drawPolyline"},
    };
    for (const auto& c : cases) {
        for (const double width : {0.0, 2.0}) {
            for (const double opacity : {0.0, 0.5}) {
                ShapeAnnotation shape(c.shape, {});
                shape.setCorners({{2.0, 2.0}, {8.0, 3.0}, {4.0, 7.0}});
                shape.setWidth(width);
                shape.setOpacity(opacity);
                Stage stage;
                stage.draw(shape);
                EXPECT_EQ(stage.painter().count(c.outline), width > 0.0 ? 1u : 0u) << c.outline;
                EXPECT_EQ(stage.painter().count(c.fill), opacity > 0.0 ? 1u : 0u) << c.fill;
            }
        }
    }
}

TEST(ShapeAnnotation, OddWidthsAndOpacitiesAreIgnored) {
    ShapeAnnotation shape(AnnotationShape::Rectangle, {{2.0, 2.0}, {4.0, 4.0}});
    shape.setWidth(3.0);
    shape.setOpacity(0.5);
    for (const double bad : {-1.0, notANumber, HUGE_VAL}) {
        shape.setWidth(bad);
        shape.setOpacity(bad);
    }
    EXPECT_EQ(shape.width(), 3.0);
    EXPECT_EQ(shape.opacity(), 0.5);
}

TEST(ShapeAnnotation, DrawsItsOutlineOverItsFilling) {
    const ShapeAnnotation rectangle(AnnotationShape::Rectangle, {{8.0, 7.0}, {2.0, 3.0}});
    EXPECT_EQ(drawn(rectangle), "fillRect 20,30 60x40 #0000001f\n"
                                "setPen #000000 1\n"
                                "drawRect 20,30 60x40\n");
    const ShapeAnnotation ellipse(AnnotationShape::Ellipse, {{8.0, 7.0}, {2.0, 3.0}});
    EXPECT_EQ(drawn(ellipse), "fillEllipse 50,50 30x20 #0000001f\n"
                              "setPen #000000 1\n"
                              "drawEllipse 50,50 30x20\n");
    const ShapeAnnotation triangle(AnnotationShape::Polygon, {{2.0, 2.0}, {8.0, 2.0}, middle});
    const std::string text = drawn(triangle);
    EXPECT_NE(text.find("fillPolygon #0000001f 20,80 80,80 50,50"), std::string::npos) << text;
    EXPECT_NE(text.find("drawPolyline 20,80 80,80 50,50 20,80"), std::string::npos) << text;
}

TEST(ShapeAnnotation, NeedsItsCornersAndCanDoWithoutOutlineOrFilling) {
    EXPECT_EQ(drawn(ShapeAnnotation(AnnotationShape::Rectangle, {middle})), "");
    EXPECT_EQ(drawn(ShapeAnnotation(AnnotationShape::Polygon, {middle, {1.0, 1.0}})), "");
    ShapeAnnotation shape(AnnotationShape::Rectangle, {{2.0, 2.0}, {4.0, 4.0}});
    shape.setWidth(0.0);
    EXPECT_EQ(drawn(shape), "fillRect 20,60 20x20 #0000001f\n");
    shape.setOpacity(0.0);
    shape.setOpacity(notANumber);
    shape.setOpacity(2.0);
    EXPECT_EQ(drawn(shape), "");
}
