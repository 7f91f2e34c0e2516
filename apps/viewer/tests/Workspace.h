// SPDX-License-Identifier: MIT
#pragma once

#include "Failure.h"
#include "TableReader.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>
#include <string>
#include <string_view>

namespace viewer {

/// A folder for the files of one test.
class Workspace {
public:
    std::string path(const std::string& name) const {
        return folder.filePath(QString::fromStdString(name)).toStdString();
    }

    std::string write(const std::string& name, std::string_view content) const {
        QFile file(QString::fromStdString(path(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write(content.data(), static_cast<qint64>(content.size()));
        return path(name);
    }

    std::string read(const std::string& name) const {
        QFile file(QString::fromStdString(path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    bool has(const std::string& name) const {
        return QFile::exists(QString::fromStdString(path(name)));
    }

    /// The names of all files, hidden ones too, in order.
    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

private:
    QTemporaryDir folder;
};

/// Reads a table from text, as if it were a file called data.csv.
inline Table tableOf(std::string_view text, const ReadRequest& request = {}) {
    const Workspace workspace;
    Table table = readTable(workspace.write("data.csv", text), request,
                            [](std::int64_t, std::int64_t, std::size_t) { return true; });
    table.file = "data.csv";
    return table;
}

/// The message with which something fails, its folder left out; empty where it does not fail.
template <class Function>
std::string failureOf(Function function) {
    try {
        function();
    } catch (const Failure& failure) {
        const std::string text = failure.what();
        const std::size_t name = text.find("data.csv");
        return name == std::string::npos ? text : text.substr(name);
    }
    return {};
}

} // namespace viewer
