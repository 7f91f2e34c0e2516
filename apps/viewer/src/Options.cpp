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

// Beyond this the pixels of one picture alone take 400 MB.
constexpr int largestSide = 10000;
constexpr int smallestSide = 16;

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
           side <= largestSide;
}

void readSize(const std::string& text, Options& options) {
    const std::size_t cross = text.find_first_of("xX");
    if (cross == std::string::npos ||
        !readSide(std::string_view(text).substr(0, cross), options.width) ||
        !readSide(std::string_view(text).substr(cross + 1), options.height))
        throw Failure("--size " + text + ": not a size such as 960x600, each side from " +
                      std::to_string(smallestSide) + " to " + std::to_string(largestSide));
}

void addExport(const std::string& path, Options& options) {
    if (!pictureKind(path))
        throw Failure("--export " + path + ": the file name has to end in .png, .svg or .pdf");
    options.exports.push_back(path);
}

using Flag = std::function<void(Options&)>;
using Setter = std::function<void(Options&, const std::string&)>;

const std::map<std::string, Flag, std::less<>>& flags() {
    static const std::map<std::string, Flag, std::less<>> all = {
        {"--scatter", [](Options& o) { o.scatter = true; }},
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
        {"--by", [](Options& o, const std::string& value) { o.by = value; }},
        {"--title", [](Options& o, const std::string& value) { o.title = value; }},
        {"--size", [](Options& o, const std::string& value) { readSize(value, o); }},
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
    if (!options.file.empty())
        throw Failure("one file at a time: " + options.file + " or " + path);
    options.file = path;
}

void requireFileForColumns(const Options& options) {
    if (!options.file.empty())
        return;
    const bool named = options.x || options.by || !options.y.empty() || options.scatter ||
                       options.logX || options.logY || options.title || !options.exports.empty();
    if (named)
        throw Failure("a data file is missing; zembra-view --help tells how to call the program");
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
    if (!options.help && !options.version)
        requireFileForColumns(options);
    return options;
}

std::string usage() {
    return R"(Usage: zembra-view [OPTION]... [FILE]
Draws a CSV or TSV file as a chart. Without FILE it shows sample charts.

The first column gives x when it holds dates or numbers; every other column of numbers becomes one
line. Separator, decimal point and header are found without being told, and so are tables that hold
several series below each other. Columns are named as in the header, or by their number, 1 for the
first.

  --x NAME         take x from this column
  --y NAME,NAME    draw these columns only
  --by NAME        one series for each value of this column
  --scatter        markers instead of lines
  --log-x          logarithmic horizontal axis
  --log-y          logarithmic vertical axis
  --title TEXT     title of the chart
  --size WxH       size in pixels (960x600)
  --export FILE    write the chart instead of showing it: .png, .svg or .pdf (repeatable)
  --help           print this text
  --version        print the version

Exit code: 0, 1 when a picture cannot be written, 2 for a bad file, column or option.
)";
}

} // namespace viewer
