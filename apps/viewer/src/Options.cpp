// SPDX-License-Identifier: MIT
#include "Options.h"

#include "Failure.h"
#include "PictureKind.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
#include <string_view>

namespace viewer {

namespace {

constexpr int smallestSide = 16;
constexpr int leastResolution = 24;
constexpr int mostResolution = 2400;
constexpr std::size_t mostLast = 100'000'000;

std::vector<std::string> splitNames(const std::string& text) {
    std::vector<std::string> names;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        if (end > begin)
            names.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

bool readSide(std::string_view text, int& side) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
    return error == std::errc() && end == text.data() + text.size() && side >= smallestSide &&
           side <= largestPictureSide;
}

void readSize(const std::string& text, Options& options) {
    const std::size_t cross = text.find_first_of("xX");
    if (cross == std::string::npos ||
        !readSide(std::string_view(text).substr(0, cross), options.size.width) ||
        !readSide(std::string_view(text).substr(cross + 1), options.size.height))
        throw Failure("--size " + text + ": not a size such as 960x600, each side from " +
                      std::to_string(smallestSide) + " to " + std::to_string(largestPictureSide));
}

void readResolution(const std::string& text, Options& options) {
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), options.size.resolution);
    if (error != std::errc() || end != text.data() + text.size() ||
        options.size.resolution < leastResolution || options.size.resolution > mostResolution)
        throw Failure("--resolution " + text + ": not a number of pixels per inch from " +
                      std::to_string(leastResolution) + " to " + std::to_string(mostResolution));
}

void requirePossibleSize(const Options& options) {
    const double scale = options.size.resolution / 96.0;
    if (std::max(options.size.width, options.size.height) * scale > largestPictureSide)
        throw Failure("--resolution " + std::to_string(options.size.resolution) +
                      ": makes a picture of more than " + std::to_string(largestPictureSide) +
                      " pixels to a side");
}

void readLast(const std::string& text, Options& options) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), options.last);
    if (error != std::errc() || end != text.data() + text.size() || options.last < 2 ||
        options.last > mostLast)
        throw Failure("--last " + text + ": not a number of rows from 2 to " +
                      std::to_string(mostLast));
}

void addExport(const std::string& path, Options& options) {
    if (!pictureKind(path))
        throw Failure("--export " + path + ": the file name has to end in .png, .svg or .pdf");
    options.exports.push_back(path);
}

void setKind(ChartKind kind, Options& options) {
    if (options.kind && *options.kind != kind)
        throw Failure("--kind: one kind at a time: " + chartKindName(*options.kind) + " or " +
                      chartKindName(kind));
    options.kind = kind;
}

void readKind(const std::string& text, Options& options) {
    const std::optional<ChartKind> kind = chartKind(text);
    if (!kind)
        throw Failure("--kind " + text +
                      ": not a kind; there are line, scatter, bar, hist, box, heat, candle");
    setKind(*kind, options);
}

using Flag = std::function<void(Options&)>;
using Setter = std::function<void(Options&, const std::string&)>;

const std::map<std::string, Flag, std::less<>>& flags() {
    static const std::map<std::string, Flag, std::less<>> all = {
        {"--scatter", [](Options& o) { setKind(ChartKind::Scatter, o); }},
        {"--follow", [](Options& o) { o.follow = true; }},
        {"--log-x", [](Options& o) { o.logX = true; }},
        {"--log-y", [](Options& o) { o.logY = true; }},
        {"--help", [](Options& o) { o.help = true; }},
        {"-h", [](Options& o) { o.help = true; }},
        {"--version", [](Options& o) { o.version = true; }},
    };
    return all;
}

const std::map<std::string, Setter, std::less<>>& setters() {
    static const std::map<std::string, Setter, std::less<>> all = {
        {"--x", [](Options& o, const std::string& value) { o.x = value; }},
        {"--kind", [](Options& o, const std::string& value) { readKind(value, o); }},
        {"--by", [](Options& o, const std::string& value) { o.by = value; }},
        {"--title", [](Options& o, const std::string& value) { o.title = value; }},
        {"--size", [](Options& o, const std::string& value) { readSize(value, o); }},
        {"--resolution", [](Options& o, const std::string& value) { readResolution(value, o); }},
        {"--last", [](Options& o, const std::string& value) { readLast(value, o); }},
        {"--export", [](Options& o, const std::string& value) { addExport(value, o); }},
        {"--y",
         [](Options& o, const std::string& value) {
             const std::vector<std::string> names = splitNames(value);
             if (names.empty())
                 throw Failure("--y " + value + ": no column is named");
             o.y.insert(o.y.end(), names.begin(), names.end());
         }},
    };
    return all;
}

void takeFile(const std::string& path, Options& options) {
    if (path.empty())
        throw Failure("the name of the file is empty");
    options.files.push_back(path);
}

void requireFileForColumns(const Options& options) {
    if (!options.files.empty())
        return;
    const bool named = options.x || options.by || !options.y.empty() || options.kind ||
                       options.logX || options.logY || options.title || !options.exports.empty();
    if (named)
        throw Failure("a data file is missing; zembra-view --help tells how to call the program");
}

void refuse(bool isGiven, const char* option, const Options& options) {
    if (isGiven)
        throw Failure("--kind " + chartKindName(*options.kind) + ": " + option +
                      " has no meaning with it");
}

// What can be told without looking into the file.
void requireFittingOptions(const Options& options) {
    if (options.files.size() > 1 && !options.exports.empty())
        throw Failure("--export: one file at a time: " + options.files[0] + " or " +
                      options.files[1]);
    if (options.follow && !canStream(options))
        throw Failure(std::string("--follow: only lines and markers grow, without --by; ") +
                      (options.by ? "leave --by out" : "--kind line or scatter"));
    if (options.follow && !options.exports.empty())
        throw Failure("--follow: needs a window; leave --export out");
    if (!options.kind)
        return;
    const KindChoices takes = choicesOf(*options.kind);
    refuse(!takes.x && options.x, "--x", options);
    refuse(!takes.y && !options.y.empty(), "--y", options);
    refuse(!takes.by && options.by, "--by", options);
    refuse(!takes.logX && options.logX, "--log-x", options);
    refuse(!takes.logY && options.logY, "--log-y", options);
}

} // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (onlyFiles || argument.empty() || argument.front() != '-' || argument == "-") {
            takeFile(argument, options);
            continue;
        }
        if (argument == "--") {
            onlyFiles = true;
            continue;
        }
        if (const auto flag = flags().find(argument); flag != flags().end()) {
            flag->second(options);
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto setter = setters().find(name);
        if (setter == setters().end())
            throw Failure(name + ": unknown option; zembra-view --help lists them all");
        if (equals != std::string::npos)
            setter->second(options, argument.substr(equals + 1));
        else if (i + 1 < arguments.size())
            setter->second(options, arguments[++i]);
        else
            throw Failure(name + ": a value is missing");
    }
    if (!options.help && !options.version) {
        requireFileForColumns(options);
        requireFittingOptions(options);
        requirePossibleSize(options);
    }
    return options;
}

bool canStream(const Options& options) {
    const ChartKind kind = options.kind.value_or(ChartKind::Line);
    return !options.by && (kind == ChartKind::Line || kind == ChartKind::Scatter);
}

std::string usage() {
    return R"(Usage: zembra-view [OPTION]... [FILE]...
Draws CSV or TSV files, or grids of values in JSON, as charts, one tab for each. With FILE - it
draws what comes through standard input, as it comes. Without FILE it shows sample charts.

The first column gives x when it holds dates or numbers; every other column of numbers becomes one
line. Separator, decimal point and header are found without being told, and so are tables that hold
several series below each other. Columns are named as in the header, or by their number, 1 for the
first.

  --x NAME         take x from this column
  --y NAME,NAME    draw these columns only
  --by NAME        one series for each value of this column
  --kind KIND      what to draw:
                     line     y over x; so it is without a kind, unless x is in no order
                     scatter  a marker for each row
                     bar      a bar from 0 to y, at dates, numbers or names
                     hist     how often the values of each column occur
                     box      quartiles and outliers, by column or by the values of --by
                     heat     values as colours: x, y and value (--x, --y, --by) at even distances,
                              a matrix without header, or a grid in JSON
                     candle   open, high, low and close, found by name
  --scatter        short for --kind scatter
  --log-x          logarithmic horizontal axis
  --log-y          logarithmic vertical axis
  --follow         go on drawing rows as they are added to the file
  --last N         of a growing file or standard input keep this many rows (500000)
  --title TEXT     title of the chart
  --size WxH       size in pixels (960x600)
  --resolution N   pixels per inch of exported pixels (96): 192 draws twice as finely
  --export FILE    write the chart instead of showing it: .png, .svg or .pdf (repeatable)
  --help           print this text
  --version        print the version

Exit code: 0, 1 when a picture cannot be written, 2 for a bad file, column or option.
)";
}

} // namespace viewer
