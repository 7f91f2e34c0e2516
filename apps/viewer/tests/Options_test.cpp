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
    EXPECT_EQ(options.file, "data.csv");
    EXPECT_EQ(options.width, 960);
    EXPECT_EQ(options.height, 600);
    EXPECT_FALSE(options.x || options.by || options.title);
    EXPECT_FALSE(options.scatter || options.logX || options.logY || options.help);
    EXPECT_TRUE(options.y.empty() && options.exports.empty());
}

TEST(Options, AllOptionsAreRead) {
    const Options options = parseOptions(
        {"--x", "t", "--y", "a,b", "--by=name", "--scatter", "--log-x", "--log-y", "--size",
         "300x200", "--title", "A title", "--export", "a.png", "--export", "b.SVG", "data.csv"});
    EXPECT_EQ(options.x, "t");
    EXPECT_THAT(options.y, ElementsAre("a", "b"));
    EXPECT_EQ(options.by, "name");
    EXPECT_TRUE(options.scatter && options.logX && options.logY);
    EXPECT_EQ(options.width, 300);
    EXPECT_EQ(options.height, 200);
    EXPECT_EQ(options.title, "A title");
    EXPECT_THAT(options.exports, ElementsAre("a.png", "b.SVG"));
}

TEST(Options, AfterTwoDashesComesTheFile) {
    EXPECT_EQ(parseOptions({"--", "--odd.csv"}).file, "--odd.csv");
}

TEST(Options, NoArgumentsAreFine) {
    EXPECT_EQ(parseOptions({}).file, "");
}

TEST(Options, EveryRefusalNamesTheOption) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"--frobnicate"}, "--frobnicate: unknown option"},
        {{"-q", "data.csv"}, "-q: unknown option"},
        {{"data.csv", "--x"}, "--x: a value is missing"},
        {{"data.csv", "--y", ","}, "--y ,: no column is named"},
        {{"a.csv", "b.csv"}, "one file at a time: a.csv or b.csv"},
        {{""}, "the name of the file is empty"},
        {{"data.csv", "--export", "a.bmp"}, "--export a.bmp: the file name has to end in"},
        {{"--export", "a.png"}, "a data file is missing"},
        {{"--scatter"}, "a data file is missing"},
    };
    for (const auto& [arguments, message] : cases)
        EXPECT_THAT(refusal(arguments), HasSubstr(message));
}

TEST(Options, SizesAreTwoSidesWithinReason) {
    for (const char* const size : {"", "x", "300", "300x", "x200", "300x200x1", "300 x 200",
                                   "15x300", "300x10001", "-5x300", "300x2e2", "99999999999x300"})
        EXPECT_THAT(refusal({"data.csv", "--size", size}), HasSubstr("--size")) << size;
    EXPECT_EQ(parseOptions({"data.csv", "--size", "16X10000"}).height, 10000);
}

TEST(Options, HelpTellsAboutEveryOption) {
    for (const char* const option : {"--x", "--y", "--by", "--scatter", "--log-x", "--log-y",
                                     "--size", "--title", "--export", "--help", "--version"})
        EXPECT_THAT(usage(), HasSubstr(option));
}

} // namespace
} // namespace viewer
