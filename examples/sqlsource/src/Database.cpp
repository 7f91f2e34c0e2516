// SPDX-License-Identifier: MIT
#include "Database.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <atomic>
#include <cmath>
#include <random>

using zembra::ColumnExtent;
using zembra::ColumnExtents;
using zembra::ColumnRequest;

Database::Database(const QString& file) {
    static std::atomic<int> count = 0;
    name = QStringLiteral("samples-%1").arg(++count);
    connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    connection.setDatabaseName(file);
    if (!connection.open()) {
        fault = connection.lastError().text();
        return;
    }
    // A demonstration may lose its data in a power cut; in return it is filled in seconds.
    run(QStringLiteral("PRAGMA synchronous = OFF"));
    run(QStringLiteral(
        "CREATE TABLE IF NOT EXISTS samples (x INTEGER PRIMARY KEY, y REAL NOT NULL)"));
}

Database::~Database() {
    connection.close();
    connection = {};
    QSqlDatabase::removeDatabase(name);
}

bool Database::run(const QString& statement) {
    QSqlQuery query(connection);
    if (query.exec(statement))
        return true;
    fault = query.lastError().text();
    return false;
}

qint64 Database::rowCount() {
    QSqlQuery query(QStringLiteral("SELECT COUNT(*) FROM samples"), connection);
    return query.next() ? query.value(0).toLongLong() : 0;
}

bool Database::fill(qint64 rows, const Progress& goOn) {
    constexpr qint64 begin = 1700000000;
    constexpr qint64 batch = 100000;
    std::minstd_rand generator(1);
    std::normal_distribution<double> step;
    QSqlQuery query(connection);
    query.prepare(QStringLiteral("INSERT INTO samples (x, y) VALUES (?, ?)"));
    double y = 0.0;
    for (qint64 row = 0; row < rows;) {
        if (!goOn(static_cast<double>(row) / static_cast<double>(rows)))
            return false;
        connection.transaction();
        for (const qint64 end = std::min(rows, row + batch); row < end; ++row) {
            y = 0.99999 * y + step(generator);
            query.bindValue(0, begin + row);
            // A spike now and then shows that none is lost.
            query.bindValue(1, row % 1234567 == 600000 ? y + 2000.0 : y);
            if (!query.exec()) {
                fault = query.lastError().text();
                connection.rollback();
                return false;
            }
        }
        connection.commit();
    }
    return true;
}

zembra::Interval Database::xRange() {
    QSqlQuery query(QStringLiteral("SELECT (SELECT MIN(x) FROM samples), "
                                   "(SELECT MAX(x) FROM samples)"),
                    connection);
    if (!query.next() || query.isNull(0))
        return {};
    return {query.value(0).toDouble(), query.value(1).toDouble()};
}

std::optional<ColumnExtents> Database::reduce(const ColumnRequest& request, const Progress& goOn) {
    QSqlQuery query(connection);
    query.setForwardOnly(true);
    query.prepare(
        QStringLiteral("SELECT a.first, f.y, a.last, l.y, a.low, a.high FROM "
                       "(SELECT MIN(x) AS first, MAX(x) AS last, MIN(y) AS low, MAX(y) AS high "
                       "FROM samples WHERE x >= ? AND x < ?) a "
                       "JOIN samples f ON f.x = a.first JOIN samples l ON l.x = a.last"));
    const double width = (request.end - request.begin) / static_cast<double>(request.columns);
    const auto edge = [&](std::size_t i) {
        constexpr double most = 9e15;
        return static_cast<qint64>(
            std::ceil(std::clamp(request.begin + static_cast<double>(i) * width, -most, most)));
    };
    ColumnExtents columns;
    for (std::size_t i = 0; i < request.columns; ++i) {
        if (!goOn(static_cast<double>(i) / static_cast<double>(request.columns)))
            return std::nullopt;
        query.bindValue(0, edge(i));
        query.bindValue(1, edge(i + 1));
        if (edge(i) == edge(i + 1) || !query.exec() || !query.next())
            continue;
        const auto value = [&query](int at) { return query.value(at).toDouble(); };
        columns.push_back({value(0), value(1), value(2), value(3), value(4), value(5)});
    }
    return columns;
}
