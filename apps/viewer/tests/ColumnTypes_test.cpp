// SPDX-License-Identifier: MIT
#include "ColumnTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::ElementsAre;

constexpr ColumnType number{ColumnKind::Number};
constexpr ColumnType word{ColumnKind::Word};
constexpr ColumnType isoTime{ColumnKind::Time, DateOrder::YearMonthDay};
constexpr ColumnType year{ColumnKind::Time, DateOrder::Year};

TEST(ColumnTypes, AHeaderNamesTheColumns) {
    const ColumnTypes types = guessColumnTypes({{"t", "v", ""}, {"2000-01-01", "1", "x"}}, '.');
    EXPECT_TRUE(types.hasHeader);
    EXPECT_THAT(types.names, ElementsAre("t", "v", "column 3"));
    EXPECT_THAT(types.types, ElementsAre(isoTime, number, word));
}

TEST(ColumnTypes, WithoutAHeaderColumnsAreNumbered) {
    const ColumnTypes types = guessColumnTypes({{"1", "2.5"}, {"2", "3.5"}}, '.');
    EXPECT_FALSE(types.hasHeader);
    EXPECT_THAT(types.names, ElementsAre("column 1", "column 2"));
    EXPECT_THAT(types.types, ElementsAre(number, number));
}

TEST(ColumnTypes, NumbersInTheHeaderDoNotHideIt) {
    EXPECT_TRUE(
        guessColumnTypes({{"month", "2019", "2020"}, {"2000-01", "1", "2"}}, '.').hasHeader);
}

TEST(ColumnTypes, WordsAloneHaveAHeader) {
    EXPECT_TRUE(guessColumnTypes({{"a", "b"}, {"x", "y"}}, '.').hasHeader);
    EXPECT_TRUE(guessColumnTypes({{"a", "b"}}, '.').hasHeader);
    EXPECT_FALSE(guessColumnTypes({{"1", "2"}}, '.').hasHeader);
}

TEST(ColumnTypes, MissingCellsDoNotCount) {
    const ColumnTypes types =
        guessColumnTypes({{"a", "b"}, {"NA", ""}, {"", ""}, {"1", ""}, {"-"}}, '.');
    EXPECT_THAT(types.types, ElementsAre(number, number));
}

TEST(ColumnTypes, TheMajorityDecides) {
    const ColumnTypes types =
        guessColumnTypes({{"a", "b"}, {"1", "x"}, {"2", "y"}, {"oops", "3"}}, '.');
    EXPECT_THAT(types.types, ElementsAre(number, word));
}

TEST(ColumnTypes, DaysBeyondTwelveTellTheOrderOfDates) {
    const auto typeOf = [](const char* first, const char* second) {
        return guessColumnTypes({{"d", "v"}, {first, "1"}, {second, "2"}}, '.').types[0].order;
    };
    EXPECT_EQ(typeOf("01/02/2015", "01/03/2015"), DateOrder::MonthDayYear);
    EXPECT_EQ(typeOf("12/02/2015", "13/02/2015"), DateOrder::DayMonthYear);
    EXPECT_EQ(typeOf("12.02.2015", "13.02.2015"), DateOrder::DayMonthYear);
    EXPECT_EQ(typeOf("Jan 1 2000", "Feb 1 2000"), DateOrder::MonthName);
}

TEST(ColumnTypes, YearsAreTimesWhereTheyGiveX) {
    EXPECT_THAT(guessColumnTypes({{"Year", "v"}, {"1990", "1"}, {"1991", "2"}}, '.').types,
                ElementsAre(year, number));
    EXPECT_THAT(guessColumnTypes({{"1990", "1"}, {"1991", "2"}}, '.').types,
                ElementsAre(year, number));
    EXPECT_THAT(guessColumnTypes({{"place", "year", "v"}, {"x", "1990", "1"}}, '.').types,
                ElementsAre(word, year, number));
}

TEST(ColumnTypes, OtherNumbersOfFourDigitsAreNumbers) {
    EXPECT_EQ(guessColumnTypes({{"wavelength", "v"}, {"1990", "1"}}, '.').types[0], number);
    EXPECT_EQ(guessColumnTypes({{"year", "v"}, {"1990", "1"}, {"1990.5", "1"}}, '.').types[0],
              number);
    EXPECT_EQ(guessColumnTypes({{"a", "year"}, {"1", "1990"}}, '.').types[1], number);
    EXPECT_EQ(guessColumnTypes({{"9000", "1"}, {"9001", "2"}}, '.').types[0], number);
}

} // namespace
} // namespace viewer
