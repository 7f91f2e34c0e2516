// SPDX-License-Identifier: MIT
#include "TickChecks.h"

#include <zembra/scale/NumberFormat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace zembra::test {

namespace {

std::string told(double value) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.17g", value);
    return text.data();
}

int superscriptAfter(const std::string& text, const std::string& mark) {
    static const std::array<std::string, 10> figures = {"⁰", "¹", "²", "³", "⁴",
                                                        "⁵", "⁶", "⁷", "⁸", "⁹"};
    const auto at = text.find(mark);
    if (at == std::string::npos)
        return 0;
    std::string rest = text.substr(at + mark.size());
    const std::string minus = "⁻";
    const bool negative = rest.rfind(minus, 0) == 0;
    rest = negative ? rest.substr(minus.size()) : rest;
    int value = 0;
    for (bool found = true; found;) {
        found = false;
        for (std::size_t i = 0; i < figures.size(); ++i) {
            if (rest.rfind(figures[i], 0) != 0)
                continue;
            value = value * 10 + static_cast<int>(i);
            rest = rest.substr(figures[i].size());
            found = true;
        }
    }
    return negative ? -value : value;
}

// What one unit of the last digit of a number stands for.
double lastDigit(const std::string& label, const std::string& offset, double value) {
    // All superscript figures begin with one of these bytes in UTF-8.
    const bool isPower =
        label.find("×10") == std::string::npos &&
        (label.find('\xc2') != std::string::npos || label.find("\xe2\x81") != std::string::npos);
    // Powers are told exactly; what remains is the rounding of the power itself.
    if (isPower)
        return std::abs(value) * 1e-11;
    const auto point = label.find('.');
    int decimals = 0;
    if (point != std::string::npos) {
        while (point + 1 + static_cast<std::size_t>(decimals) < label.size() &&
               std::isdigit(static_cast<unsigned char>(
                   label[point + 1 + static_cast<std::size_t>(decimals)])))
            ++decimals;
    }
    const int exponent =
        superscriptAfter(label, "×10") + superscriptAfter(offset, "×10") - decimals;
    // The factor stands before the common part; without one, a ×10 there is the part's own.
    const bool isFactor = offset.rfind("×10", 0) == 0;
    return std::pow(10.0, isFactor ? exponent : exponent - superscriptAfter(offset, "×10"));
}

std::string in(double min, double max, const TickRequest& request) {
    return " in [" + told(min) + ", " + told(max) + "] of " + std::to_string(request.maxMajor);
}

} // namespace

std::string orderFault(const TickSet& set, double first, double second,
                       const TickRequest& request) {
    const double min = std::min(first, second);
    const double max = std::max(first, second);
    if (static_cast<int>(set.major.size()) > request.maxMajor)
        return "more ticks than asked for: " + std::to_string(set.major.size()) +
               in(min, max, request);
    if (set.major.size() + set.minor.size() > 1000)
        return "more ticks than the cap" + in(min, max, request);
    std::vector<double> major;
    for (const Tick& tick : set.major)
        major.push_back(tick.value);
    for (const auto* values : {&std::as_const(major), &set.minor}) {
        for (std::size_t i = 0; i < values->size(); ++i) {
            const double value = (*values)[i];
            if (!(value >= min && value <= max))
                return "tick outside: " + told(value) + in(min, max, request);
            if (i > 0 && !(value > (*values)[i - 1]))
                return "not increasing at " + told(value) + in(min, max, request);
        }
    }
    for (const double value : set.minor) {
        if (std::binary_search(major.begin(), major.end(), value))
            return "minor tick on a major one at " + told(value) + in(min, max, request);
    }
    std::vector<std::pair<std::string_view, std::string_view>> texts;
    for (const Tick& tick : set.major)
        texts.emplace_back(tick.label, tick.group);
    std::sort(texts.begin(), texts.end());
    const auto twice = std::adjacent_find(texts.begin(), texts.end());
    if (twice != texts.end())
        return "twice the text " + std::string(twice->first) + " " + std::string(twice->second) +
               in(min, max, request);
    return {};
}

std::string tickFault(const TickSet& set, double first, double second, const TickRequest& request) {
    if (std::string fault = orderFault(set, first, second, request); !fault.empty())
        return fault;
    const NumberFormat automatic;
    const NumberFormat& format = request.format ? *request.format : automatic;
    for (const Tick& tick : set.major) {
        const auto value = format.parse(tick.label, set.offset);
        const double digit = lastDigit(tick.label, set.offset, tick.value);
        if (!value || !(std::abs(*value - tick.value) <= 0.5 * digit))
            return "\"" + tick.label + "\" \"" + set.offset + "\" is not " + told(tick.value) +
                   " but " + (value ? told(*value) : "nothing") + in(first, second, request);
    }
    return {};
}

std::string tickFault(const Scale& scale, double first, double second, const TickRequest& request) {
    return tickFault(scale.ticks(first, second, request), first, second, request);
}

std::optional<ToldTime> readTime(const Tick& tick) {
    static constexpr std::array<const char*, 12> names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::vector<std::string> words;
    const std::string text = tick.group + " " + tick.label;
    std::string month;
    std::vector<int> numbers;
    std::array<int, 3> clock{};
    ToldTime result;
    double rest = 0.0;
    const auto addClock = [&](const std::string& word) {
        double seconds = 0.0;
        const int read = std::sscanf(word.c_str(), "%d:%d:%lf", &clock[0], &clock[1], &seconds);
        rest += seconds;
        result.lastDigit = read == 3 ? 1.0 : 60.0;
    };
    std::size_t at = 0;
    while (at < text.size()) {
        const auto end = std::min(text.find(' ', at), text.size());
        if (end > at)
            words.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const bool hasUnit = i + 1 < words.size() &&
                             (words[i + 1] == "s" || words[i + 1] == "ms" || words[i + 1] == "µs");
        if (std::find(names.begin(), names.end(), word) != names.end()) {
            month = word;
        } else if (hasUnit) {
            const double unit = words[i + 1] == "s" ? 1.0 : words[i + 1] == "ms" ? 1e-3 : 1e-6;
            rest += std::strtod(word.c_str(), nullptr) * unit;
            const auto point = word.find('.');
            const auto decimals = point == std::string::npos ? 0 : word.size() - point - 1;
            result.lastDigit = unit * std::pow(10.0, -static_cast<double>(decimals));
            ++i;
        } else if (word.find(':') != std::string::npos) {
            addClock(word);
        } else if (word.rfind("−", 0) == 0) {
            numbers.push_back(-std::atoi(word.c_str() + std::string("−").size()));
        } else {
            numbers.push_back(std::atoi(word.c_str()));
        }
    }
    if (numbers.empty() || numbers.size() > 2)
        return std::nullopt;
    // "Jan 5 2024", or "2024" before "Jan 5", or a year alone.
    const bool yearFirst = !tick.group.empty() && std::isalpha(tick.group[0]) == 0;
    const int year = numbers.size() == 1 ? numbers[0] : numbers[yearFirst ? 0 : 1];
    const int day = numbers.size() == 1 ? 1 : numbers[yearFirst ? 1 : 0];
    const auto index =
        month.empty() ? 0 : std::find(names.begin(), names.end(), month) - names.begin();
    const std::chrono::sys_days date = std::chrono::year(year) /
                                       std::chrono::month(static_cast<unsigned>(index) + 1) /
                                       std::chrono::day(static_cast<unsigned>(day));
    const auto days = static_cast<double>(date.time_since_epoch().count());
    result.instant = days * 86400.0 + clock[0] * 3600.0 + clock[1] * 60.0 + rest;
    if (result.lastDigit == 0.0)
        result.lastDigit = 86400.0;
    return result;
}

std::string timeTickFault(const TickSet& set, double first, double second,
                          const TickRequest& request) {
    if (std::string fault = orderFault(set, first, second, request); !fault.empty())
        return fault;
    for (const Tick& tick : set.major) {
        const auto time = readTime(tick);
        const double spacing = std::nextafter(std::abs(tick.value), 1e300) - std::abs(tick.value);
        if (!time || !(std::abs(time->instant - tick.value) <=
                       (time->lastDigit < 1.0 ? 0.5 * time->lastDigit + spacing : 0.0)))
            return "\"" + tick.group + "\" \"" + tick.label + "\" is not " + told(tick.value) +
                   " but " + (time ? told(time->instant) : "nothing") + in(first, second, request);
    }
    return {};
}

std::string timeTickFault(const Scale& scale, double first, double second,
                          const TickRequest& request) {
    return timeTickFault(scale.ticks(first, second, request), first, second, request);
}

double RandomRanges::uniform(double from, double to) {
    // Not std::uniform_real_distribution, whose numbers differ between libraries.
    return from + (to - from) * (static_cast<double>(engine() >> 11) * 0x1p-53);
}

RandomRanges::Range RandomRanges::any() {
    const double middle = std::pow(10.0, uniform(-300.0, 300.0)) * (engine() % 2 == 0 ? 1.0 : -1.0);
    const double span = std::abs(middle) * std::pow(10.0, uniform(-17.0, 5.0));
    return {middle - uniform(0.0, 1.0) * span, middle + uniform(0.0, 1.0) * span};
}

RandomRanges::Range RandomRanges::positive() {
    const double low = std::pow(10.0, uniform(-300.0, 300.0));
    const double decades = std::pow(10.0, uniform(-16.0, 2.5));
    return {low, std::min(low * std::pow(10.0, decades), 1e308)};
}

RandomRanges::Range RandomRanges::nearZero(double width) {
    const double first = width * std::pow(10.0, uniform(-6.0, 12.0));
    const double second = engine() % 3 == 0 ? first * std::pow(10.0, uniform(-8.0, 0.0))
                                            : -width * std::pow(10.0, uniform(-6.0, 12.0));
    return engine() % 2 == 0 ? Range{first, second} : Range{-first, -second};
}

RandomRanges::Range RandomRanges::time() {
    const double middle = uniform(-3.4e11, 5.6e11);
    const double span = std::pow(10.0, uniform(-8.0, 12.2));
    return {std::max(middle - span * uniform(0.0, 1.0), -9e11),
            std::min(middle + span * uniform(0.0, 1.0), 9e11)};
}

} // namespace zembra::test
