// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/SampleSource.h>

#include <QSqlDatabase>
#include <QString>

#include <functional>
#include <optional>

/// A table of samples in a database file, one a second. Belongs to the thread that made it.
class Database {
public:
    /// Told a share of the work that is done, and asked whether to go on.
    using Progress = std::function<bool(double share)>;

    /// Opens or makes `file`.
    explicit Database(const QString& file);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Empty where all is well.
    QString error() const { return fault; }
    qint64 rowCount();
    /// Fills an empty table with a random walk.
    bool fill(qint64 rows, const Progress& goOn);
    /// What x covers. Fast, because x is the key.
    zembra::Interval xRange();
    /// Reduces the samples to columns: one query for each, along the key. None when told to stop.
    std::optional<zembra::ColumnExtents> reduce(const zembra::ColumnRequest& request,
                                                const Progress& goOn);

private:
    bool run(const QString& statement);

    QString name;
    QSqlDatabase connection;
    QString fault;
};
