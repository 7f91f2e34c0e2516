// SPDX-License-Identifier: MIT
#include "Exporter.h"

#include "PictureKind.h"
#include "Workspace.h"

#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

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
        exportPlot(plot, workspace.path(name), {320, 200});

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
    exportPlot(plot, workspace.path("a.svg"), {320, 200});
    EXPECT_THAT(workspace.read("a.svg"), HasSubstr("</svg>"));
}

TEST(Exporter, WhatCannotBeWrittenSaysWhyAndLeavesNothing) {
    const Workspace workspace;
    zembra::Plot plot;
    addLine(plot);
    try {
        exportPlot(plot, workspace.path("no/such/folder/a.png"), {320, 200});
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
    exportPlot(plot, workspace.path("a.png"), {16, 16});
    EXPECT_EQ(QImage(QString::fromStdString(workspace.path("a.png"))).size(), QSize(16, 16));
}

TEST(Exporter, AHigherResolutionDrawsTheSameChartWithMorePixels) {
    const Workspace workspace;
    zembra::Plot plot;
    addLine(plot);
    exportPlot(plot, workspace.path("a.png"), {320, 200, 288});
    const QImage image(QString::fromStdString(workspace.path("a.png")));
    EXPECT_EQ(image.size(), QSize(960, 600));
    EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 288.0, 0.1);
    // The layout is that of the logical size.
    EXPECT_LT(plot.canvasRect().width, 320.0);
    const QImage small = plotImage(plot, {320, 200});
    const auto darkShare = [](const QImage& picture) {
        qsizetype dark = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                dark += qGray(picture.pixel(x, y)) < 160 ? 1 : 0;
        }
        return double(dark) / (double(picture.width()) * picture.height());
    };
    EXPECT_GT(darkShare(small), 0.0);
    EXPECT_NEAR(darkShare(image), darkShare(small), 0.4 * darkShare(small));
}

TEST(Exporter, SidesStayWithinWhatAPictureCanBe) {
    EXPECT_EQ((PictureSize{1000, 10, 192}).pixelWidth(), 2000);
    EXPECT_EQ((PictureSize{10000, 1, 2400}).pixelWidth(), largestPictureSide);
    EXPECT_EQ((PictureSize{16, 1, 24}).pixelHeight(), 1);
}

#ifdef __linux__
TEST(Exporter, AFullDeviceSaysSoAndStaysADevice) {
    const Workspace workspace;
    std::filesystem::create_symlink("/dev/full", workspace.path("full.png"));
    zembra::Plot plot;
    addLine(plot);
    try {
        exportPlot(plot, workspace.path("full.png"), {320, 200});
        FAIL() << "there is no room";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.exitCode(), 1);
        EXPECT_THAT(failure.what(), HasSubstr("full.png: cannot be written: No space left"));
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(Exporter, AnExistingTargetOfALinkIsReplacedAndTheLinkStays) {
    const Workspace workspace;
    workspace.write("real.svg", "old");
    std::filesystem::create_symlink(workspace.path("real.svg"), workspace.path("link.svg"));
    zembra::Plot plot;
    addLine(plot);
    exportPlot(plot, workspace.path("link.svg"), {320, 200});
    EXPECT_TRUE(std::filesystem::is_symlink(workspace.path("link.svg")));
    EXPECT_THAT(workspace.read("real.svg"), HasSubstr("</svg>"));
}
#endif

} // namespace
} // namespace viewer
