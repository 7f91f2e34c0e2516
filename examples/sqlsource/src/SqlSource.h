// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/SampleSource.h>

#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
#include <memory>

class Database;

/// Lets a database reduce its samples in a thread of its own.
///
/// Painting takes the best answer at hand: the last one, and around it the overview. Only the
/// latest request counts; work on an older one stops. GUI thread.
class SqlSource : public QObject, public zembra::SampleSource {
    Q_OBJECT

public:
    /// Fills the table with `rows` rows where it is empty.
    SqlSource(const QString& file, qint64 rows, QObject* parent = nullptr);
    ~SqlSource() override;

    zembra::SampleBounds bounds() const override { return all; }
    std::shared_ptr<const zembra::ColumnExtents>
    extents(const zembra::ColumnRequest& request) override;
    std::uint64_t revision() const override { return changes; }

    bool isBusy() const { return pending > 0; }

Q_SIGNALS:
    /// There is a better answer.
    void answered();
    void progressed(double share, bool isFilling);
    void failed(const QString& message);

private:
    using Answer = std::shared_ptr<const zembra::ColumnExtents>;

    void open(const QString& file, qint64 rows);
    void reduce(const zembra::ColumnRequest& request, quint64 ticket);
    void tellProgress(double share, bool isFilling);
    void start(const zembra::Interval& x);
    void take(const zembra::ColumnRequest& request, quint64 ticket, Answer answer);

    QThread thread;
    // Lives in the thread, as what is called in it.
    QObject* worker;
    // Touched in the thread alone.
    std::unique_ptr<Database> database;
    // Work for another ticket than this one is not wanted any more.
    std::atomic<quint64> latest = 0;

    zembra::SampleBounds all;
    zembra::ColumnRequest asked;
    zembra::ColumnRequest overviewRequest;
    zembra::ColumnRequest detailRequest;
    Answer overview;
    Answer detail;
    Answer merged;
    int pending = 0;
    std::uint64_t changes = 0;
};
