// SPDX-License-Identifier: MIT
#include "Options.h"

#include "Failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string refusal(const std::vector<std::string>& arguments) {
    try {
        parseOptions(arguments);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.exitCode(), 2);
        return failure.what();
    }
    return {};
}

TEST(Options, AFileAloneLeavesEverythingElseAtItsDefault) {
    const Options options = parseOptions({"data.csv"});
    EXPECT_THAT(options.files, ElementsAre("data.csv"));
    EXPECT_EQ(options.size.width, 960);
    EXPECT_EQ(options.size.height, 600);
    EXPECT_FALSE(options.x || options.by || options.title);
    EXPECT_FALSE(options.kind || options.logX || options.logY || options.help);
    EXPECT_TRUE(options.y.empty() && options.exports.empty());
}

TEST(Options, AllOptionsAreRead) {
    const Options options = parseOptions(
        {"--x", "t", "--y", "a,b", "--by=name", "--scatter", "--log-x", "--log-y", "--size",
         "300x200", "--title", "A title", "--export", "a.png", "--export", "b.SVG", "data.csv"});
    EXPECT_EQ(options.x, "t");
    EXPECT_THAT(options.y, ElementsAre("a", "b"));
    EXPECT_EQ(options.by, "name");
    EXPECT_TRUE(options.kind == ChartKind::Scatter && options.logX && options.logY);
    EXPECT_EQ(options.size.width, 300);
    EXPECT_EQ(options.size.height, 200);
    EXPECT_EQ(options.title, "A title");
    EXPECT_THAT(options.exports, ElementsAre("a.png", "b.SVG"));
}

TEST(Options, AfterTwoDashesComesTheFile) {
    EXPECT_THAT(parseOptions({"--", "--odd.csv"}).files, ElementsAre("--odd.csv"));
}

TEST(Options, NoArgumentsAreFine) {
    EXPECT_TRUE(parseOptions({}).files.empty());
}

TEST(Options, EveryRefusalNamesTheOption) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"--frobnicate"}, "--frobnicate: unknown option"},
        {{"-q", "data.csv"}, "-q: unknown option"},
        {{"data.csv", "--x"}, "--x: a value is missing"},
        {{"data.csv", "--y", ","}, "--y ,: no column is named"},
        {{"a.csv", "b.csv", "--export", "a.png"}, "one file at a time: a.csv or b.csv"},
        {{""}, "the name of the file is empty"},
        {{"data.csv", "--export", "a.bmp"}, "--export a.bmp: the file name has to end in"},
        {{"--export", "a.png"}, "a data file is missing"},
        {{"--scatter"}, "a data file is missing"},
    };
    for (const auto& [arguments, message] : cases)
        EXPECT_THAT(refusal(arguments), HasSubstr(message));
}

TEST(Options, EveryKindHasAName) {
    const std::vector<std::pair<std::string, ChartKind>> kinds = {
        {"line", ChartKind::Line},
        {"scatter", ChartKind::Scatter},
        {"bar", ChartKind::Bar},
        {"hist", ChartKind::Histogram},
        {"box", ChartKind::Box},
        {"heat", ChartKind::HeatMap},
        {"candle", ChartKind::Candlestick},
    };
    for (const auto& [name, kind] : kinds) {
        EXPECT_EQ(parseOptions({"data.csv", "--kind", name}).kind, kind);
        EXPECT_EQ(chartKindName(kind), name);
        EXPECT_THAT(usage(), HasSubstr("  " + name + " "));
    }
    EXPECT_EQ(parseOptions({"data.csv", "--scatter", "--kind=scatter"}).kind, ChartKind::Scatter);
}

TEST(Options, WhatAKindCannotUseIsRefused) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"--kind", "pie"}, "--kind pie: not a kind; there are line, scatter, bar"},
        {{"--scatter", "--kind", "bar"}, "--kind: one kind at a time: scatter or bar"},
        {{"--kind", "hist", "--x", "a"}, "--kind hist: --x has no meaning with it"},
        {{"--kind", "box", "--x", "a"}, "--kind box: --x has"},
        {{"--kind", "box", "--log-x"}, "--kind box: --log-x has"},
        {{"--kind", "heat", "--log-x"}, "--kind heat: --log-x has"},
        {{"--kind", "heat", "--log-y"}, "--kind heat: --log-y has"},
        {{"--kind", "candle", "--y", "a"}, "--kind candle: --y has"},
        {{"--kind", "candle", "--by", "a"}, "--kind candle: --by has"},
    };
    for (auto [arguments, message] : cases) {
        arguments.emplace_back("data.csv");
        EXPECT_THAT(refusal(arguments), HasSubstr(message));
    }
}

TEST(Options, SeveralFilesAreSeveralCharts) {
    EXPECT_THAT(parseOptions({"a.csv", "-", "b.csv"}).files, ElementsAre("a.csv", "-", "b.csv"));
}

TEST(Options, SizesAreTwoSidesWithinReason) {
    for (const char* const size : {"", "x", "300", "300x", "x200", "300x200x1", "300 x 200",
                                   "15x300", "300x10001", "-5x300", "300x2e2", "99999999999x300"})
        EXPECT_THAT(refusal({"data.csv", "--size", size}), HasSubstr("--size")) << size;
    EXPECT_EQ(parseOptions({"data.csv", "--size", "16X10000"}).size.height, 10000);
}

TEST(Options, ResolutionsArePixelsPerInch) {
    EXPECT_EQ(parseOptions({"data.csv", "--resolution", "300"}).size.resolution, 300);
    for (const char* const resolution : {"", "0", "-96", "96dpi", "1e2", "2401", "23"})
        EXPECT_THAT(refusal({"data.csv", "--resolution", resolution}), HasSubstr("--resolution"));
    EXPECT_THAT(refusal({"data.csv", "--size", "6000x100", "--resolution", "192"}),
                HasSubstr("more than 10000 pixels"));
}

TEST(Options, HelpTellsAboutEveryOption) {
    for (const char* const option :
         {"--x", "--y", "--by", "--kind", "--scatter", "--log-x", "--log-y", "--size",
          "--resolution", "--title", "--export", "--help", "--version"})
        EXPECT_THAT(usage(), HasSubstr(option));
}

} // namespace
} // namespace viewer
