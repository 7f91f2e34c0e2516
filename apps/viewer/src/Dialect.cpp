// SPDX-License-Identifier: MIT
#include "Dialect.h"

#include "Ascii.h"
#include "CsvReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <vector>

namespace viewer {

namespace {

constexpr std::size_t mostRecords = 500;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// How evenly a separator divides the records: the share of records with the usual number of fields,
// 0 where it divides none.
double evenness(std::string_view sample, bool isWhole, char separator) {
    std::vector<std::size_t> counts;
    CsvReader reader(separator, [&counts](const Record& record) {
        if (counts.size() < mostRecords)
            counts.push_back(record.fields.size());
    });
    reader.feed(sample);
    if (isWhole || counts.empty())
        reader.finish();
    if (counts.empty())
        return 0.0;
    std::map<std::size_t, std::size_t> frequency;
    for (const std::size_t count : counts)
        ++frequency[count];
    const auto usual = std::ranges::max_element(
        frequency, [](const auto& a, const auto& b) { return a.second < b.second; });
    if (usual->first < 2)
        return 0.0;
    const double share = static_cast<double>(usual->second) / static_cast<double>(counts.size());
    // A first line that is not divided speaks against it: decimal commas below a header of one.
    return counts.front() == usual->first ? share : share / 2.0;
}

char guessSeparator(std::string_view sample, bool isWhole) {
    // The comma comes last: files with decimal commas are evenly divided by it as well.
    constexpr std::array candidates = {'\t', ';', '|', ','};
    char best = ';';
    double bestEvenness = 0.5;
    for (const char candidate : candidates) {
        const double share = evenness(sample, isWhole, candidate);
        if (share >= 0.9)
            return candidate;
        if (share >= bestEvenness) {
            best = candidate;
            bestEvenness = share;
        }
    }
    return best;
}

struct Votes {
    int point = 0;
    int comma = 0;
    // Numbers such as "1,234", which may be groups or decimals.
    int undecidedComma = 0;
    int undecidedPoint = 0;
};

void vote(std::string_view field, Votes& votes) {
    if (!field.empty() && (field.front() == '-' || field.front() == '+'))
        field.remove_prefix(1);
    std::size_t points = 0;
    std::size_t commas = 0;
    std::size_t end = 0;
    while (end < field.size() && (isDigit(field[end]) || field[end] == '.' || field[end] == ',')) {
        points += field[end] == '.' ? 1 : 0;
        commas += field[end] == ',' ? 1 : 0;
        ++end;
    }
    const bool exponent = end < field.size() && end > 0 && (field[end] == 'e' || field[end] == 'E');
    if ((end < field.size() && !exponent) || points + commas == 0)
        return;
    const std::string_view mantissa = field.substr(0, end);
    const std::size_t lastMark = mantissa.find_last_of(".,");
    const std::size_t decimals = mantissa.size() - lastMark - 1;
    const bool lastIsComma = mantissa[lastMark] == ',';
    if (points > 0 && commas > 0) {
        (lastIsComma ? votes.comma : votes.point) += 1;
    } else if (points + commas == 1) {
        const bool undecided =
            decimals == 3 && lastMark >= 1 && lastMark <= 3 && !exponent && mantissa.front() != '0';
        if (lastIsComma)
            (undecided ? votes.undecidedComma : votes.comma) += 1;
        else
            (undecided ? votes.undecidedPoint : votes.point) += 1;
    } else if (decimals == 3) {
        // More than one mark of a kind divides groups, so the other one is the decimal mark.
        (lastIsComma ? votes.point : votes.comma) += 1;
    }
}

char guessDecimalMark(std::string_view sample, bool isWhole, char separator) {
    Votes votes;
    std::size_t records = 0;
    CsvReader reader(separator, [&votes, &records](const Record& record) {
        if (records++ >= mostRecords)
            return;
        for (const std::string_view field : record.fields)
            vote(field, votes);
    });
    reader.feed(sample);
    if (isWhole || records == 0)
        reader.finish();
    if (votes.comma != votes.point)
        return votes.comma > votes.point ? ',' : '.';
    // Where a comma cannot divide columns because numbers need it, another separator was chosen.
    return separator != ',' && votes.undecidedComma > votes.undecidedPoint ? ',' : '.';
}

} // namespace

Dialect guessDialect(std::string_view sample, bool isWhole) {
    Dialect dialect;
    dialect.separator = guessSeparator(sample, isWhole);
    dialect.decimalMark = guessDecimalMark(sample, isWhole, dialect.separator);
    return dialect;
}

} // namespace viewer
