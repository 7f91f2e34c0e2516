// SPDX-License-Identifier: MIT
#include "GridReader.h"

#include "Ascii.h"
#include "Failure.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>

namespace viewer {

namespace {

[[noreturn]] void fail(const std::string& path, qsizetype line, const std::string& what) {
    throw Failure(path + ":" + std::to_string(line) + ": " + what);
}

std::optional<std::size_t> side(const QJsonValue& value) {
    const double number = value.toDouble();
    if (!(number >= 1.0) || number > 1e9 || number != std::floor(number))
        return std::nullopt;
    return static_cast<std::size_t>(number);
}

} // namespace

bool isGridFile(const std::string& path) {
    return equalIgnoringCase(std::filesystem::path(path).extension().string(), ".json");
}

ValueGrid readGrid(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(path + ": cannot be read: " + file.errorString().toStdString());
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw Failure(path + ": cannot be read: " + file.errorString().toStdString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        fail(path, 1 + text.left(error.offset).count('\n'), error.errorString().toStdString());

    const QJsonObject object = document.object();
    const std::optional<std::size_t> columns = side(object.value(QStringLiteral("width")));
    const std::optional<std::size_t> rows = side(object.value(QStringLiteral("height")));
    const QJsonValue values = object.value(QStringLiteral("values"));
    if (!columns || !rows || !values.isArray())
        fail(path, 1, "a grid is an object with whole numbers width and height and a list values");
    const QJsonArray list = values.toArray();
    if (static_cast<std::size_t>(list.size()) != *columns * *rows)
        fail(path, 1,
             "width and height make " + std::to_string(*columns * *rows) + " values, there are " +
                 std::to_string(list.size()));

    ValueGrid grid;
    grid.columns = *columns;
    grid.values.reserve(*columns * *rows);
    for (const QJsonValue value : list) {
        if (!value.isDouble() && !value.isNull())
            fail(path, 1, "value " + std::to_string(grid.values.size() + 1) + " is not a number");
        grid.values.push_back(value.toDouble(std::numeric_limits<double>::quiet_NaN()));
    }
    return grid;
}

} // namespace viewer
