// SPDX-License-Identifier: MIT
#include "GridReader.h"

#include "Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace viewer {
namespace {

using testing::HasSubstr;

std::string refusal(const std::string& text) {
    const Workspace workspace;
    try {
        readGrid(workspace.write("a.json", text));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.exitCode(), 2);
        const std::string what = failure.what();
        return what.substr(what.find("a.json"));
    }
    return {};
}

TEST(GridReader, ValuesComeRowByRowAndNullIsMissing) {
    const Workspace workspace;
    const ValueGrid grid = readGrid(workspace.write(
        "a.json",
        R"({"width": 3, "height": 2, "more": "is ignored", "values": [1,2,3,4,null,6]})"));
    EXPECT_EQ(grid.columns, 3U);
    ASSERT_EQ(grid.values.size(), 6U);
    EXPECT_EQ(grid.values[3], 4.0);
    EXPECT_TRUE(std::isnan(grid.values[4]));
}

TEST(GridReader, TheSuffixTellsInEitherCase) {
    EXPECT_TRUE(isGridFile("a.b/c.JSON"));
    EXPECT_FALSE(isGridFile("a.json/c.csv"));
}

TEST(GridReader, EveryRefusalNamesTheFile) {
    const std::string sides = "a.json:1: a grid is an object with whole numbers";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"{\n\n\"width\" 3}", "a.json:3: "},
        {"[1, 2]", sides},
        {R"({"width": 0, "height": 1, "values": []})", sides},
        {R"({"width": 1.5, "height": 2, "values": [1, 2, 3]})", sides},
        {R"({"width": 1, "height": 2, "values": 3})", sides},
        {R"({"width": 2, "height": 2, "values": [1, 2, 3]})",
         "a.json:1: width and height make 4 values, there are 3"},
        {R"({"width": 1, "height": 2, "values": [1, "x"]})", "a.json:1: value 2 is not a number"},
    };
    for (const auto& [text, message] : cases)
        EXPECT_THAT(refusal(text), HasSubstr(message)) << text;
    EXPECT_THROW(readGrid("no/such.json"), Failure);
}

} // namespace
} // namespace viewer
