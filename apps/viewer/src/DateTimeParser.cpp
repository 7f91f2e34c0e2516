// SPDX-License-Identifier: MIT
#include "DateTimeParser.h"

#include "Ascii.h"

#include <date/date.h>

#include <array>
#include <cmath>

namespace viewer {

namespace {

// Reads a text from left to right; every function leaves it as it is where it does not fit.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest(text) {}

    bool atEnd() const { return rest.empty(); }
    bool take(char wanted) {
        if (rest.empty() || rest.front() != wanted)
            return false;
        rest.remove_prefix(1);
        return true;
    }
    // Takes one of the characters and returns it, or 0.
    char takeOneOf(std::string_view wanted) {
        if (rest.empty() || wanted.find(rest.front()) == std::string_view::npos)
            return 0;
        const char taken = rest.front();
        rest.remove_prefix(1);
        return taken;
    }
    void skipSpaces() {
        while (take(' ')) {
        }
    }
    bool digits(std::size_t least, std::size_t most, int& number) {
        std::size_t count = 0;
        int value = 0;
        while (count < rest.size() && isDigit(rest[count])) {
            if (count == most)
                return false;
            value = value * 10 + (rest[count++] - '0');
        }
        if (count < least)
            return false;
        rest.remove_prefix(count);
        number = value;
        return true;
    }
    double fraction() {
        double value = 0.0;
        double unit = 0.1;
        while (!rest.empty() && isDigit(rest.front())) {
            value += unit * (rest.front() - '0');
            unit /= 10.0;
            rest.remove_prefix(1);
        }
        return value;
    }
    std::string_view letters() {
        std::size_t count = 0;
        while (count < rest.size() && isLetter(rest[count]))
            ++count;
        const std::string_view word = rest.substr(0, count);
        rest.remove_prefix(count);
        return word;
    }
    bool takeWord(std::string_view wanted) {
        if (!equalIgnoringCase(rest.substr(0, wanted.size()), wanted))
            return false;
        rest.remove_prefix(wanted.size());
        return true;
    }

private:
    std::string_view rest;
};

struct Day {
    int year = 1970;
    int month = 1;
    int day = 1;
};

// The number of a month from its English name or its first three letters (and "Sept").
bool monthNumber(std::string_view word, int& month) {
    constexpr std::array<std::string_view, 12> names = {
        "january", "february", "march",     "april",   "may",      "june",
        "july",    "august",   "september", "october", "november", "december"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (equalIgnoringCase(word, names[i]) || equalIgnoringCase(word, names[i].substr(0, 3)) ||
            (i == 8 && equalIgnoringCase(word, "sept"))) {
            month = static_cast<int>(i) + 1;
            return true;
        }
    }
    return false;
}

bool yearMonthDay(Scanner& scanner, Day& day) {
    if (!scanner.digits(4, 4, day.year))
        return false;
    const char mark = scanner.takeOneOf("-/");
    if (mark == 0 || !scanner.digits(1, 2, day.month))
        return false;
    return !scanner.take(mark) || scanner.digits(1, 2, day.day);
}

// A day, a month name and a year, the first two in either order, the day left out or not.
bool monthName(Scanner& scanner, Day& day) {
    const auto gap = [&scanner] {
        scanner.takeOneOf(",-./");
        scanner.skipSpaces();
    };
    const bool dayFirst = scanner.digits(1, 2, day.day);
    gap();
    if (!monthNumber(scanner.letters(), day.month))
        return false;
    gap();
    if (!dayFirst && scanner.digits(1, 2, day.day))
        gap();
    return scanner.digits(4, 4, day.year);
}

bool dayAndMonth(Scanner& scanner, std::string_view marks, int& first, int& second, int& year) {
    if (!scanner.digits(1, 2, first))
        return false;
    const char mark = scanner.takeOneOf(marks);
    return mark != 0 && scanner.digits(1, 2, second) && scanner.take(mark) &&
           scanner.digits(4, 4, year);
}

bool scanDay(Scanner& scanner, DateOrder order, Day& day) {
    switch (order) {
    case DateOrder::YearMonthDay:
        return yearMonthDay(scanner, day);
    case DateOrder::MonthName:
        return monthName(scanner, day);
    case DateOrder::MonthDayYear:
        return dayAndMonth(scanner, "/", day.month, day.day, day.year);
    case DateOrder::DayMonthYear:
        return dayAndMonth(scanner, "/.", day.day, day.month, day.year);
    case DateOrder::Year:
        return scanner.digits(4, 4, day.year);
    }
    return false;
}

// Adds a time of day, if there is one, to `seconds`.
bool scanTime(Scanner& scanner, double& seconds) {
    int hours = 0;
    int minutes = 0;
    int wholeSeconds = 0;
    if (!scanner.digits(1, 2, hours) || !scanner.take(':') || !scanner.digits(2, 2, minutes))
        return false;
    double fraction = 0.0;
    if (scanner.take(':')) {
        if (!scanner.digits(2, 2, wholeSeconds))
            return false;
        if (scanner.takeOneOf(".,") != 0)
            fraction = scanner.fraction();
    }
    scanner.skipSpaces();
    const bool afternoon = scanner.takeWord("pm");
    if (afternoon || scanner.takeWord("am")) {
        if (hours < 1 || hours > 12)
            return false;
        hours = hours % 12 + (afternoon ? 12 : 0);
        scanner.skipSpaces();
    }
    // 24:00 ends a day, and second 60 is a leap second.
    const bool valid = minutes < 60 && wholeSeconds <= 60 &&
                       (hours < 24 || (hours == 24 && minutes == 0 && wholeSeconds == 0));
    seconds += hours * 3600.0 + minutes * 60.0 + wholeSeconds + fraction;
    return valid;
}

// Takes a zone offset, if there is one, from `seconds`.
bool scanOffset(Scanner& scanner, double& seconds) {
    if (scanner.take('Z') || scanner.take('z') || scanner.takeWord("utc") ||
        scanner.takeWord("gmt"))
        return true;
    const char sign = scanner.takeOneOf("+-");
    if (sign == 0)
        return true;
    int hours = 0;
    int minutes = 0;
    if (!scanner.digits(2, 2, hours)) {
        if (!scanner.digits(4, 4, hours))
            return false;
        minutes = hours % 100;
        hours /= 100;
    } else if (scanner.take(':') && !scanner.digits(2, 2, minutes)) {
        return false;
    }
    if (hours > 15 || minutes > 59)
        return false;
    seconds -= (sign == '+' ? 1.0 : -1.0) * (hours * 3600.0 + minutes * 60.0);
    return true;
}

} // namespace

std::optional<double> parseDateTime(std::string_view text, DateOrder order) {
    Scanner scanner(text);
    Day day;
    if (!scanDay(scanner, order, day))
        return std::nullopt;
    const date::year_month_day calendar(date::year(day.year),
                                        date::month(static_cast<unsigned>(day.month)),
                                        date::day(static_cast<unsigned>(day.day)));
    if (!calendar.ok())
        return std::nullopt;
    const auto days = date::sys_days(calendar).time_since_epoch().count();
    double seconds = static_cast<double>(days) * 86400.0;
    if (!scanner.atEnd()) {
        const bool divided = scanner.takeOneOf("T t_,") != 0;
        scanner.skipSpaces();
        if (!divided || order == DateOrder::Year || !scanTime(scanner, seconds) ||
            !scanOffset(scanner, seconds) || !scanner.atEnd())
            return std::nullopt;
    }
    return seconds;
}

} // namespace viewer
