// SPDX-License-Identifier: MIT
#include "Numbers.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

struct Case {
    const char* text;
    double value;
};

TEST(Numbers, AreReadWithAPoint) {
    for (const Case& c :
         {Case{"0", 0.0}, Case{"-1.5", -1.5}, Case{"+7", 7.0}, Case{".5", 0.5}, Case{"5.", 5.0},
          Case{"1e3", 1000.0}, Case{"-2.5E-2", -0.025}, Case{"1,234", 1234.0},
          Case{"-12,345,678.25", -12345678.25}, Case{"1 234 567", 1234567.0},
          Case{"1'234.5", 1234.5}, Case{"931800000", 931800000.0}, Case{"1e-999", 0.0}})
        EXPECT_EQ(parseNumber(c.text, '.'), c.value) << c.text;
}

TEST(Numbers, AreReadWithAComma) {
    for (const Case& c : {Case{"1,5", 1.5}, Case{"-0,25", -0.25}, Case{"1.234,5", 1234.5},
                          Case{"1.234", 1234.0}, Case{"2,5e3", 2500.0}, Case{"12", 12.0}})
        EXPECT_EQ(parseNumber(c.text, ','), c.value) << c.text;
}

TEST(Numbers, OtherTextIsNone) {
    for (const char* const text :
         {"",       "-",    "+",      "abc",       "1a",         "1.2.3",  "12,34", "1,23",
          "1,2345", ",123", "1,,234", "1,234'567", "1234,567",   "++1",    "+-1",   "nan",
          "inf",    "-inf", "1e999",  "0x10",      "2000-01-01", "1,234,", "--1",   "1 2"})
        EXPECT_EQ(parseNumber(text, '.'), std::nullopt) << text;
    EXPECT_EQ(parseNumber("1.5", ','), std::nullopt);
}

TEST(Numbers, MissingValuesHaveManyNames) {
    for (const char* const text :
         {"", "-", "NA", "na", "N/A", "NaN", "null", "NULL", "None", "inf", "-Inf", "Infinity"})
        EXPECT_TRUE(isMissing(text)) << text;
    for (const char* const text : {"0", "--", "nano", "no", "nil", "nothing"})
        EXPECT_FALSE(isMissing(text)) << text;
}

} // namespace
} // namespace viewer
