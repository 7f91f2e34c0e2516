// SPDX-License-Identifier: MIT
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

#include "support/TickChecks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

using namespace zembra;
using namespace zembra::test;

namespace {

std::string line(const NumberFormat& format, double min, double max, const Scale& scale = Scale()) {
    TickRequest request;
    request.maxMajor = 5;
    request.format = &format;
    const TickSet set = scale.ticks(min, max, request);
    std::string text;
    for (const Tick& tick : set.major)
        text += (text.empty() ? "" : " | ") + tick.label;
    return text + set.offset;
}

} // namespace

TEST(NumberFormat, TicksAreToldInEveryNotation) {
    NumberFormat swiss = NumberFormat::fixed(0);
    swiss.setGroupSeparator("’");
    NumberFormat german = NumberFormat::fixed(1);
    german.setDecimalPoint(",").setGroupSeparator(".");
    struct Case {
        NumberFormat format;
        double min, max;
        const char* labels;
    };
    const Case cases[] = {
        {NumberFormat::fixed(2), 0, 2, "0.00 | 0.50 | 1.00 | 1.50 | 2.00"},
        {NumberFormat::fixed(0), 0, 0.002, "0.0000 | 0.0005 | 0.0010 | 0.0015 | 0.0020"},
        {NumberFormat::exponent(), 0, 20000, "0 | 5×10³ | 1×10⁴ | 1.5×10⁴ | 2×10⁴"},
        {NumberFormat::engineering(), 0, 20000, "0 | 5×10³ | 10×10³ | 15×10³ | 20×10³"},
        {NumberFormat::siPrefix("Hz"), 0, 2000,
         "0\u00a0Hz | 500\u00a0Hz | 1\u00a0kHz | 1.5\u00a0kHz | 2\u00a0kHz"},
        {NumberFormat::siPrefix(), -2e-6, 2e-6, "−2µ | −1µ | 0 | 1µ | 2µ"},
        {NumberFormat::percent(), 0, 1, "0% | 50% | 100%"},
        {NumberFormat::percent(1), 0, 0.01, "0.0% | 0.5% | 1.0%"},
        {NumberFormat::degrees(), -90, 90, "−50° | 0° | 50°"},
        {NumberFormat::currency("$", "", 2), -2, 2, "−$2.00 | −$1.00 | $0.00 | $1.00 | $2.00"},
        {NumberFormat::currency("", " €"), 0, 400, "0 € | 100 € | 200 € | 300 € | 400 €"},
        {swiss, 0, 4e6, "0 | 1’000’000 | 2’000’000 | 3’000’000 | 4’000’000"},
        {german, 999, 1003, "999,0 | 1.000,0 | 1.001,0 | 1.002,0 | 1.003,0"},
        {NumberFormat::custom([](double v) { return v > 1 ? "much" : "little"; }), 0, 4,
         "little |  | much |  | "},
    };
    for (const Case& c : cases)
        EXPECT_EQ(line(c.format, c.min, c.max), c.labels);
}

TEST(NumberFormat, LogTicksFollowTheFormat) {
    EXPECT_EQ(line(NumberFormat::siPrefix("Hz"), 1, 1e6, Scale::log()),
              "1\u00a0Hz | 100\u00a0Hz | 10\u00a0kHz | 1\u00a0MHz");
    EXPECT_EQ(line(NumberFormat::percent(), 0.001, 1, Scale::log()), "0.1% | 1% | 10% | 100%");
}

TEST(NumberFormat, TextsReadBackInEveryNotation) {
    NumberFormat german = NumberFormat::fixed(1);
    german.setDecimalPoint(",").setGroupSeparator(".");
    NumberFormat meters;
    meters.setSuffix(" m");
    const NumberFormat formats[] = {NumberFormat(),
                                    NumberFormat::fixed(2),
                                    NumberFormat::exponent(),
                                    NumberFormat::engineering(),
                                    NumberFormat::siPrefix(),
                                    NumberFormat::siPrefix("m"),
                                    NumberFormat::currency("$"),
                                    meters};
    RandomRanges ranges;
    for (int i = 0; i < randomRangeCount / 5; ++i) {
        const auto range = ranges.any();
        TickRequest request;
        request.format = &formats[i % 8];
        const TickSet set = Scale().ticks(range.first, range.second, request);
        for (const Tick& tick : set.major) {
            const auto value = request.format->parse(tick.label, set.offset);
            ASSERT_TRUE(value) << tick.label << " of format " << i % 8;
            ASSERT_EQ(*value, tick.value) << tick.label << " " << set.offset;
        }
    }
    EXPECT_EQ(german.parse("−1.234,5"), -1234.5);
    EXPECT_EQ(NumberFormat::percent().parse("−12.5%"), -0.125);
    EXPECT_EQ(NumberFormat().parse("1.5", "×10⁻³ +2"), 2.0015);
    EXPECT_EQ(NumberFormat().parse("2⁻³"), 0.125);
}

TEST(NumberFormat, WhatTellsNoNumberReadsAsNone) {
    for (const char* text : {"", "−", "x", "1x", "10^", "1.5×", "×10³", "1×10", "--1", "1e5"})
        EXPECT_FALSE(NumberFormat().parse(text)) << text;
    EXPECT_FALSE(NumberFormat().parse("1", "×10"));
    EXPECT_FALSE(NumberFormat().parse("1", "nonsense"));
}

TEST(NumberFormat, ReadsWhatPeopleWriteBesideItsOwnTexts) {
    NumberFormat meters = NumberFormat::siPrefix("m");
    struct Case {
        NumberFormat format;
        const char* label;
        const char* offset;
        double value;
    };
    const double e = std::exp(1.0);
    const Case cases[] = {
        {NumberFormat(), "e", "", e},
        {NumberFormat(), "−e", "", -e},
        {NumberFormat(), "e²", "", e * e},
        {NumberFormat(), "−2³", "", -8.0},
        {NumberFormat(), "−10³", "", -1000.0},
        // More digits than an integer holds.
        {NumberFormat(), "12345678901234567890", "", 12345678901234567890.0},
        {NumberFormat(), "−12345678901234567890.5", "", -12345678901234567890.5},
        {NumberFormat(), "1", "×10³ +2", 1002.0},
        {NumberFormat(), "1", "×10³+2", 1002.0},
        {NumberFormat(), "1", "×10³", 1000.0},
        {NumberFormat(), "1", "+1234567890123456789", 1234567890123456789.0},
        {NumberFormat(), "1×10³⁰", "+1", 1e30},
        {NumberFormat(), "0.001", "+2", 2.001},
        {NumberFormat(), "1", "−2", -1.0},
        {NumberFormat(), "e", "+1", e + 1.0},
        {NumberFormat(), "1", "+e", e + 1.0},
        {NumberFormat::percent(), "12.5", "", 0.125},
        {NumberFormat::currency("$"), "5", "", 5.0},
        {NumberFormat::currency("$"), "−$5", "", -5.0},
        {meters, "5\u00a0km", "", 5000.0},
        {meters, "5\u00a0mm", "", 0.005},
        {meters, "5k", "", 5000.0},
        {meters, "5m", "", 5.0},
        {meters, "5", "", 5.0},
        {NumberFormat::siPrefix(), "3µ", "", 3e-6},
        {NumberFormat::siPrefix(), "3n", "", 3e-9},
        {NumberFormat::siPrefix(), "3G", "", 3e9},
    };
    for (const Case& c : cases) {
        const auto value = c.format.parse(c.label, c.offset);
        ASSERT_TRUE(value) << c.label << " " << c.offset;
        EXPECT_DOUBLE_EQ(*value, c.value) << c.label << " " << c.offset;
    }
    for (const char* text : {"10⁻", "10⁻³⁻", "10⁹⁹⁹⁹⁹⁹⁹⁹⁹⁹⁹⁹", "1.2.3", "1..2.", "ee", "e1",
                             "99999999999999999999×10⁴⁰⁰"})
        EXPECT_FALSE(NumberFormat().parse(text)) << text;
    for (const char* text : {"", "m", "k", "µ"})
        EXPECT_FALSE(meters.parse(text)) << text;
}

TEST(NumberFormat, AnEmptyDecimalPointMeansThePoint) {
    NumberFormat format = NumberFormat::fixed(1);
    EXPECT_EQ(format.setDecimalPoint("").text(1.5, 0.1), "1.5");
}

TEST(NumberFormat, SingleNumbersAreRoundedToWhatMatters) {
    struct Case {
        double value, resolution;
        const char* text;
    };
    constexpr Case cases[] = {
        {1.5, 0.0, "1.5"},
        {1.0 / 3.0, 0.0, "0.333333"},
        {-0.0, 0.0, "0"},
        {2.0 / 3.0, 0.01, "0.67"},
        {1.5, 0.001, "1.500"},
        {1234.56, 10, "1230"},
        {0.004, 0.01, "0.00"},
        {0.006, 0.01, "0.01"},
        {-0.004, 0.01, "0.00"},
        {-0.006, 0.01, "−0.01"},
        {1.25, -1.0, "1.25"},
        {1.25, HUGE_VAL, "1.25"},
        {6.02214e23, 0.0, "6.02214×10²³"},
        {-1.6e-19, 0.0, "−1.6×10⁻¹⁹"},
        {5e-324, 0.0, "4.94066×10⁻³²⁴"},
        {1.7976931348623157e308, 0.0, "1.79769×10³⁰⁸"},
        {3.0, 1e-300, "3.0000000000000000"},
        {123.456, 1e300, "0"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(NumberFormat().text(c.value, c.resolution), c.text);
    const double inf = std::numeric_limits<double>::infinity();
    for (const double value : {inf, -inf, std::nan("")})
        EXPECT_EQ(NumberFormat().text(value), "");
    EXPECT_EQ(NumberFormat::percent().text(0.12345, 0.001), "12.3%");
    // Seventeen digits, though the eighteenth would tell that it is a little less.
    EXPECT_EQ(NumberFormat::fixed(0).text(1e-14, 1e-40), "0.00000000000001" + std::string(16, '0'));
}

TEST(NumberFormat, AFunctionThatFailsGivesNoText) {
    const NumberFormat failing =
        NumberFormat::custom([](double) -> std::string { throw std::runtime_error("no"); });
    EXPECT_EQ(failing.text(1.0), "");
    EXPECT_EQ(NumberFormat::custom({}).text(1.0), "");
}

TEST(NumberFormat, ExponentsBeginWherePlainDigitsWouldBeLong) {
    struct Case {
        NumberFormat format;
        double value;
        const char* text;
    };
    NumberFormat grouped;
    grouped.setGroupSeparator(" ");
    NumberFormat dollars = NumberFormat::engineering();
    dollars.setPrefix("$").setSuffix(" net");
    const Case cases[] = {
        {NumberFormat(), 1234560.0, "1234560"},
        {NumberFormat(), 9999990.0, "9999990"},
        {NumberFormat(), 1e7, "1×10⁷"},
        {NumberFormat(), 12345600.0, "1.23456×10⁷"},
        {NumberFormat(), 0.0001, "0.0001"},
        {NumberFormat(), 0.000123456, "0.000123456"},
        {NumberFormat(), 0.00001, "1×10⁻⁵"},
        {NumberFormat::fixed(0), 1e21, "1000000000000000000000"},
        {NumberFormat::fixed(0), 1e22, "1×10²²"},
        {NumberFormat::fixed(0), 1e-21, "0.000000000000000000001"},
        {NumberFormat::fixed(0), 1e-22, "1×10⁻²²"},
        {NumberFormat::fixed(3), 12.0, "12.000"},
        {NumberFormat::fixed(3), -0.5, "−0.500"},
        {NumberFormat::fixed(1), 12.25, "12.25"},
        {grouped, 123.0, "123"},
        {grouped, 1234.0, "1 234"},
        {grouped, -123456.0, "−123 456"},
        {grouped, 1234560.0, "1 234 560"},
        {grouped, 1234.5, "1 234.5"},
        {NumberFormat::exponent(), 1.0, "1"},
        {NumberFormat::exponent(), 0.0, "0"},
        {NumberFormat::exponent(), 10.0, "1×10¹"},
        {NumberFormat::exponent(), -0.125, "−1.25×10⁻¹"},
        {NumberFormat::engineering(), 999.0, "999"},
        {NumberFormat::engineering(), 1000.0, "1×10³"},
        {NumberFormat::engineering(), 0.5, "500×10⁻³"},
        {dollars, -2500.0, "−$2.5×10³ net"},
        {dollars, 2500.0, "$2.5×10³ net"},
        {NumberFormat::siPrefix(), 0.0, "0"},
        {NumberFormat::siPrefix(), 999.0, "999"},
        {NumberFormat::siPrefix(), 1e-30, "1q"},
        {NumberFormat::siPrefix(), 1e-31, "100×10⁻³³"},
        {NumberFormat::siPrefix(), 999e30, "999Q"},
        {NumberFormat::siPrefix(), 1e33, "1×10³³"},
        {NumberFormat::siPrefix("m"), 1e33, "1×10³³\u00a0m"},
        {NumberFormat::siPrefix("m"), 1.0, "1\u00a0m"},
        {NumberFormat::siPrefix("m"), 0.25, "250\u00a0mm"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.format.text(c.value), c.text) << c.value;
}

TEST(NumberFormat, EverySiPrefixTellsItsPower) {
    const char* const prefixes[] = {"q", "r", "y", "z", "a", "f", "p", "n", "µ", "m", "",
                                    "k", "M", "G", "T", "P", "E", "Z", "Y", "R", "Q"};
    int power = -30;
    for (const char* prefix : prefixes) {
        for (const char* unit : {"", "m", "Hz"}) {
            const NumberFormat format = NumberFormat::siPrefix(unit);
            const std::string gap = *unit != 0 ? "\u00a0" : "";
            const double value = std::stod("15e" + std::to_string(power));
            EXPECT_EQ(format.text(value), "15" + gap + prefix + unit);
            EXPECT_EQ(format.parse("15" + gap + prefix + unit), value) << prefix << unit;
        }
        power += 3;
    }
}

TEST(NumberFormat, SumsOfLabelAndOffsetAreRoundedOnce) {
    struct Case {
        const char* label;
        const char* offset;
        double value;
    };
    constexpr Case cases[] = {
        {"0.1", "+0.2", 0.3},
        {"−0.1", "+0.3", 0.2},
        {"3", "+0.0000000000000001", 3.0},
        {"0.3", "×10⁻⁶ +0.0000012", 0.0000015},
        {"1", "×10⁻³ −2", -1.999},
        {"123456789", "+1000000000000000000", 1000000000123456789.0},
        {"0.7", "+123456789012345678", 123456789012345678.7},
        {"1×10²", "+0.1", 100.1},
        {"7", "×10¹⁷ +0.1", 7e17},
        {"7", "×10¹⁸ +1", 7e18},
        {"9.9", "×10¹⁸ +1", 9.9e18},
        {"9223372036854775807", "+99999", 9223372036854875806.0},
        {"0.5", "+9223372036854775807", 9223372036854775807.5},
        {"123456789012345678", "+876543210987654322", 1e18},
    };
    for (const Case& c : cases)
        EXPECT_EQ(NumberFormat().parse(c.label, c.offset), c.value) << c.label << " " << c.offset;
    EXPECT_EQ(NumberFormat::percent().parse("0.1%", "+20"), 0.201);
}

TEST(NumberFormat, RepeatedTextsOfTheHostStandOnce) {
    const NumberFormat floors = NumberFormat::custom([](double v) {
        return v < 3 ? "low" : v < 5 ? "mid" : "low";
    });
    TickRequest request;
    request.maxMajor = 10;
    request.format = &floors;
    std::string texts;
    for (const Tick& tick : Scale().ticks(0.0, 7.0, request).major)
        texts += tick.label + "|";
    EXPECT_EQ(texts, "low|||mid||low|||");
}
