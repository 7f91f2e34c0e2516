// SPDX-License-Identifier: MIT
#include "DateTimeParser.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

struct Case {
    const char* text;
    DateOrder order;
    double seconds;
};

constexpr double jan1st2000 = 946684800.0;
constexpr double jan1st2015 = 1420070400.0;
constexpr double day = 86400.0;

TEST(DateTimeParser, ReadsEveryWayOfWritingADate) {
    const DateOrder iso = DateOrder::YearMonthDay;
    const DateOrder name = DateOrder::MonthName;
    for (const Case& c : {
             Case{"2000-01-01", iso, jan1st2000},
             Case{"2015/01/01 01:00:00", iso, jan1st2015 + 3600.0},
             Case{"2015-1-2", iso, jan1st2015 + day},
             Case{"2015-02", iso, jan1st2015 + 31 * day},
             Case{"1958-03-01", iso, -373593600.0},
             Case{"1969-12-31T23:59:59Z", iso, -1.0},
             Case{"2015-01-01T12:30", iso, jan1st2015 + 45000.0},
             Case{"2015-01-01 12:30:15.25", iso, jan1st2015 + 45015.25},
             Case{"2015-01-01T12:30:15,5Z", iso, jan1st2015 + 45015.5},
             Case{"2015-01-01T12:00:00+01:00", iso, jan1st2015 + 39600.0},
             Case{"2015-01-01T12:00:00-0530", iso, jan1st2015 + 63000.0},
             Case{"2015-01-01T12:00:00+02", iso, jan1st2015 + 36000.0},
             Case{"2015-01-01 12:00:00 UTC", iso, jan1st2015 + 43200.0},
             Case{"2015-01-01 24:00", iso, jan1st2015 + day},
             Case{"2016-02-29", iso, jan1st2015 + (365 + 31 + 28) * day},
             Case{"Jan 1 2000", name, jan1st2000},
             Case{"January 1, 2000", name, jan1st2000},
             Case{"1 Jan 2000", name, jan1st2000},
             Case{"01-JAN-2000", name, jan1st2000},
             Case{"Jan 2000", name, jan1st2000},
             Case{"Sept 1 2000", name, jan1st2000 + 244 * day},
             Case{"Jan 1, 2000 1:30 PM", name, jan1st2000 + 48600.0},
             Case{"Jan 1 2000 12:15 am", name, jan1st2000 + 900.0},
             Case{"01/02/2015", DateOrder::MonthDayYear, jan1st2015 + day},
             Case{"02/01/2015", DateOrder::DayMonthYear, jan1st2015 + day},
             Case{"02.01.2015 06:00", DateOrder::DayMonthYear, jan1st2015 + day + 21600.0},
             Case{"2000", DateOrder::Year, jan1st2000},
         }) {
        const std::optional<double> seconds = parseDateTime(c.text, c.order);
        ASSERT_TRUE(seconds) << c.text;
        EXPECT_DOUBLE_EQ(*seconds, c.seconds) << c.text;
    }
}

TEST(DateTimeParser, RefusesWhatIsNoDate) {
    for (const char* const text : {"",
                                   "2015",
                                   "2015-",
                                   "2015-13-01",
                                   "2015-02-29",
                                   "2015-00-01",
                                   "2015-01-32",
                                   "15-01-01",
                                   "2015-01/01",
                                   "2015-01-01x",
                                   "2015-01-01T",
                                   "2015-01-01T25:00",
                                   "2015-01-01T12:60",
                                   "2015-01-01T12:00:61",
                                   "2015-01-01T12",
                                   "2015-01-01T24:01",
                                   "2015-01-01T12:00+1",
                                   "2015-01-01T12:00:00+99:00",
                                   "2015-01-01 13:00 pm",
                                   "20150101",
                                   "word",
                                   "1.5"})
        EXPECT_EQ(parseDateTime(text, DateOrder::YearMonthDay), std::nullopt) << text;
    for (const char* const text : {"Jan", "Jan 1", "Foo 1 2000", "Ja 1 2000", "Jan 32 2000",
                                   "Feb 30 2000", "1 1 2000", "Janua 1 2000", "2000"})
        EXPECT_EQ(parseDateTime(text, DateOrder::MonthName), std::nullopt) << text;
    EXPECT_EQ(parseDateTime("13/01/2015", DateOrder::MonthDayYear), std::nullopt);
    EXPECT_EQ(parseDateTime("01/13/2015", DateOrder::DayMonthYear), std::nullopt);
    EXPECT_EQ(parseDateTime("01.13.2015", DateOrder::MonthDayYear), std::nullopt);
    EXPECT_EQ(parseDateTime("999", DateOrder::Year), std::nullopt);
    EXPECT_EQ(parseDateTime("2000 12:00", DateOrder::Year), std::nullopt);
}

} // namespace
} // namespace viewer
