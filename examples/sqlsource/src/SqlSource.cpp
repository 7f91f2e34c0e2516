// SPDX-License-Identifier: MIT
#include "SqlSource.h"

#include "Database.h"

#include <QMetaObject>

#include <utility>

using zembra::ColumnExtents;
using zembra::ColumnRequest;

SqlSource::SqlSource(const QString& file, qint64 rows, QObject* parent)
    : QObject(parent), worker(new QObject) {
    // Plug-ins are loaded by the thread of the application.
    QSqlDatabase::drivers();
    worker->moveToThread(&thread);
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    thread.start();
    ++pending;
    QMetaObject::invokeMethod(worker, [this, file, rows] { open(file, rows); });
}

SqlSource::~SqlSource() {
    ++latest;
    // A connection is closed by the thread that opened it.
    QMetaObject::invokeMethod(
        worker, [this] { database.reset(); }, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
}

void SqlSource::open(const QString& file, qint64 rows) {
    database = std::make_unique<Database>(file);
    const quint64 ticket = latest;
    if (database->error().isEmpty() && database->rowCount() == 0)
        database->fill(rows, [&](double share) {
            tellProgress(share, true);
            return latest == ticket;
        });
    zembra::Interval x;
    if (database->error().isEmpty())
        x = database->xRange();
    else
        QMetaObject::invokeMethod(this,
                                  [this, message = database->error()] { Q_EMIT failed(message); });
    QMetaObject::invokeMethod(this, [this, x] { start(x); });
}

// Signals come from the GUI thread, so that none is missed by who connects after the constructor.
void SqlSource::tellProgress(double share, bool isFilling) {
    QMetaObject::invokeMethod(this,
                              [this, share, isFilling] { Q_EMIT progressed(share, isFilling); });
}

// The overview comes first: it is what there is to show wherever a view goes.
void SqlSource::start(const zembra::Interval& x) {
    constexpr std::size_t columns = 1000;
    --pending;
    if (x.isEmpty())
        return;
    all.x = x;
    ++changes;
    asked = overviewRequest = {x.min, x.max + 1.0, columns};
    ++pending;
    const quint64 ticket = ++latest;
    QMetaObject::invokeMethod(worker, [this, ticket] { reduce(overviewRequest, ticket); });
}

void SqlSource::reduce(const ColumnRequest& request, quint64 ticket) {
    auto columns = database->reduce(request, [&](double share) {
        tellProgress(share, false);
        return latest == ticket;
    });
    Answer answer;
    if (columns)
        answer = std::make_shared<const ColumnExtents>(std::move(*columns));
    QMetaObject::invokeMethod(this, [this, request, ticket, answer = std::move(answer)]() mutable {
        take(request, ticket, std::move(answer));
    });
}

void SqlSource::take(const ColumnRequest& request, quint64 ticket, Answer answer) {
    --pending;
    if (!answer || ticket != latest)
        return;
    if (!overview) {
        overview = std::move(answer);
        for (const auto& column : *overview) {
            all.y.include(column.minY);
            all.y.include(column.maxY);
        }
        merged = overview;
    } else {
        detail = std::move(answer);
        detailRequest = request;
        auto all = std::make_shared<ColumnExtents>();
        for (const auto& column : *overview)
            if (column.lastX < request.begin)
                all->push_back(column);
        all->insert(all->end(), detail->begin(), detail->end());
        for (const auto& column : *overview)
            if (column.firstX >= request.end)
                all->push_back(column);
        merged = std::move(all);
    }
    ++changes;
    Q_EMIT answered();
}

std::shared_ptr<const ColumnExtents> SqlSource::extents(const ColumnRequest& request) {
    if (overview && !(request == asked)) {
        asked = request;
        ++pending;
        const quint64 ticket = ++latest;
        QMetaObject::invokeMethod(worker, [this, request, ticket] { reduce(request, ticket); });
    }
    return merged;
}
