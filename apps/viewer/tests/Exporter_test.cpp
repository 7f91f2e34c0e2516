// SPDX-License-Identifier: MIT
#include "Exporter.h"

#include "PictureKind.h"
#include "Workspace.h"

#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::HasSubstr;

void addLine(zembra::Plot& plot) {
    plot.setTitle("A line");
    plot.add<zembra::LineSeries>(std::vector<double>{0, 1, 2}, std::vector<double>{0, 2, 1});
}

TEST(PictureKind, TheSuffixTellsInEitherCase) {
    EXPECT_EQ(pictureKind("a.png"), PictureKind::Png);
    EXPECT_EQ(pictureKind("folder.svg/a.PDF"), PictureKind::Pdf);
    EXPECT_EQ(pictureKind("a.b.Svg"), PictureKind::Svg);
    for (const char* const path : {"", "a", "a.bmp", "png", "a.png/b", ".png", "a.png "})
        EXPECT_EQ(pictureKind(path), std::nullopt) << path;
}

TEST(Exporter, WritesEachKindInTheSizeAskedFor) {
    const Workspace workspace;
    zembra::Plot plot;
    addLine(plot);
    for (const char* const name : {"a.png", "a.svg", "a.pdf"})
        exportPlot(plot, workspace.path(name), 320, 200);

    const QImage image(QString::fromStdString(workspace.path("a.png")));
    EXPECT_EQ(image.size(), QSize(320, 200));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    EXPECT_THAT(workspace.read("a.svg"), HasSubstr("viewBox=\"0 0 320 200\""));
    // 96 pixels make an inch, and so do 72 points.
    const std::string pdf = workspace.read("a.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF-"));
    EXPECT_NE(pdf.find("/MediaBox [0 0 240.000000 150.000000]"), std::string::npos);
}

TEST(Exporter, ReplacesAnOlderPicture) {
    const Workspace workspace;
    zembra::Plot plot;
    addLine(plot);
    workspace.write("a.svg", "old");
    exportPlot(plot, workspace.path("a.svg"), 320, 200);
    EXPECT_THAT(workspace.read("a.svg"), HasSubstr("</svg>"));
}

TEST(Exporter, WhatCannotBeWrittenSaysWhyAndLeavesNothing) {
    const Workspace workspace;
    zembra::Plot plot;
    addLine(plot);
    try {
        exportPlot(plot, workspace.path("no/such/folder/a.png"), 320, 200);
        FAIL() << "the folder does not exist";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.exitCode(), 1);
        EXPECT_THAT(failure.what(), HasSubstr("a.png: cannot be written: No such file"));
    }
    EXPECT_FALSE(workspace.has("no"));
}

TEST(Exporter, APlotWithoutSeriesIsAPicture) {
    const Workspace workspace;
    zembra::Plot plot;
    exportPlot(plot, workspace.path("a.png"), 16, 16);
    EXPECT_EQ(QImage(QString::fromStdString(workspace.path("a.png"))).size(), QSize(16, 16));
}

} // namespace
} // namespace viewer
