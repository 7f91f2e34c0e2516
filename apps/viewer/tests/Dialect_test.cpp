// SPDX-License-Identifier: MIT
#include "Dialect.h"

#include <gtest/gtest.h>

#include <string>

namespace viewer {
namespace {

struct Case {
    const char* text;
    char separator;
    char decimalMark;
};

class DialectOf : public testing::TestWithParam<Case> {};

TEST_P(DialectOf, IsFound) {
    const Dialect dialect = guessDialect(GetParam().text, true);
    EXPECT_EQ(dialect.separator, GetParam().separator) << GetParam().text;
    EXPECT_EQ(dialect.decimalMark, GetParam().decimalMark) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DialectOf,
    testing::Values(Case{"a,b\n1,2\n3,4\n", ',', '.'}, Case{"a;b\n1;2\n3;4\n", ';', '.'},
                    Case{"a\tb\n1\t2\n", '\t', '.'}, Case{"a|b|c\n1|2|3\n", '|', '.'},
                    Case{"a;b\n1,5;2,25\n3,0;4,5\n", ';', ','},
                    Case{"a\tb\n1,5\t2,25\n", '\t', ','},
                    Case{"a,b\n\"1,5\",\"2,25\"\n\"3,5\",\"4,75\"\n", ',', ','},
                    // Below a header of one column commas are decimal.
                    Case{"a\n1,5\n2,5\n3,5\n", ';', ','},
                    // Groups of three tell the other mark.
                    Case{"a;b\n1.234,5;2\n", ';', ','}, Case{"a;b\n1,234.5;2\n", ';', '.'},
                    Case{"a;b\n1.234.567;2\n", ';', ','}, Case{"a;b\n1,234,567;2\n", ';', '.'},
                    // One group alone may be either: a file divided by commas writes points.
                    Case{"a,b\n\"1,234\",2\n", ',', '.'}, Case{"a;b\n1,234;2\n", ';', ','},
                    Case{"a;b\n0.125;2\n", ';', '.'},
                    // Separators inside quotes do not count, nor do points of dates.
                    Case{"a,b\n\"x;y;z\",1\n\"x;y\",2\n", ',', '.'},
                    Case{"a;b\n31.01.2015;1,5\n", ';', ','},
                    Case{"date\tv\n\"Jan 1, 2000\"\t5\nJan 2, 2000\t6\n", '\t', '.'},
                    Case{"a,b\n1e-3,2.5E+4\n", ',', '.'},
                    // Rows of different length.
                    Case{"a,b,c\n1,2,3\n1,2\n1,2,3\n", ',', '.'}, Case{"word\n", ';', '.'},
                    Case{"", ';', '.'}));

TEST(Dialect, ACutRecordAtTheEndOfTheSampleDoesNotCount) {
    EXPECT_EQ(guessDialect("a,b\n1,2\n3", false).separator, ',');
}

} // namespace
} // namespace viewer
