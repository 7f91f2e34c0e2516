// SPDX-License-Identifier: MIT
#include "Groups.h"

#include "Statistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace viewer {

namespace {

constexpr int wantedClasses = 6;

std::string shortNumber(double value) {
    std::array<char, 32> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.6g", value);
    return buffer.data();
}

// A ramp from dark to light that stays in order in grey and for colour-blind readers.
zembra::Color rampColor(double share) {
    const std::array<zembra::Color, 5> stops = {
        zembra::Color(46, 38, 110), zembra::Color(42, 98, 150), zembra::Color(38, 148, 140),
        zembra::Color(120, 196, 92), zembra::Color(246, 214, 60)};
    const double place = std::clamp(share, 0.0, 1.0) * (stops.size() - 1);
    const auto index = std::min(static_cast<std::size_t>(place), stops.size() - 2);
    return zembra::mix(stops[index], stops[index + 1], place - static_cast<double>(index));
}

std::vector<Group> groupsOfWords(const Column& by) {
    std::vector<Group> groups(by.words.size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        groups[i].name = by.words[i];
    for (std::size_t row = 0; row < by.codes.size(); ++row)
        groups[by.codes[row]].rows.push_back(static_cast<std::uint32_t>(row));
    // A row without a word belongs to no series.
    std::erase_if(groups, [](const Group& group) { return group.name.empty(); });
    return groups;
}

std::vector<Group> groupsOfNumbers(const Column& by) {
    const std::vector<double> numbers = fewDistinct(by.values, by.values.size());
    std::vector<Group> groups(numbers.size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        groups[i].name = by.name + " " + shortNumber(numbers[i]);
    for (std::size_t row = 0; row < by.values.size(); ++row) {
        if (!std::isfinite(by.values[row]))
            continue;
        const auto place = std::ranges::lower_bound(numbers, by.values[row]);
        groups[static_cast<std::size_t>(place - numbers.begin())].rows.push_back(
            static_cast<std::uint32_t>(row));
    }
    return groups;
}

std::vector<Group> groupsOfClasses(const Column& by) {
    const std::vector<double> borders = roundBorders(by.values, wantedClasses);
    std::vector<Group> groups(borders.size() > 1 ? borders.size() - 1 : 0);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        groups[i].name = shortNumber(borders[i]) + " – " + shortNumber(borders[i + 1]);
        groups[i].color = rampColor(groups.size() > 1 ? static_cast<double>(i) /
                                                            static_cast<double>(groups.size() - 1)
                                                      : 0.5);
    }
    for (std::size_t row = 0; row < by.values.size(); ++row) {
        if (!std::isfinite(by.values[row]) || groups.empty())
            continue;
        const auto above = std::ranges::upper_bound(borders, by.values[row]);
        const auto place =
            std::clamp<std::ptrdiff_t>(above - borders.begin() - 1, 0, std::ssize(groups) - 1);
        groups[static_cast<std::size_t>(place)].rows.push_back(static_cast<std::uint32_t>(row));
    }
    std::erase_if(groups, [](const Group& group) { return group.rows.empty(); });
    return groups;
}

} // namespace

std::vector<Group> groupsOf(const Table& table, const ChartPlan& plan) {
    if (plan.grouping == Grouping::None)
        return {};
    const Column& by = table.columns[plan.by];
    if (plan.grouping == Grouping::Classes)
        return groupsOfClasses(by);
    return by.type.kind == ColumnKind::Word ? groupsOfWords(by) : groupsOfNumbers(by);
}

std::vector<double> pick(const std::vector<double>& values,
                         const std::vector<std::uint32_t>& rows) {
    std::vector<double> picked;
    picked.reserve(rows.size());
    for (const std::uint32_t row : rows)
        picked.push_back(values[row]);
    return picked;
}

} // namespace viewer
