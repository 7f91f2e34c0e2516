// SPDX-License-Identifier: MIT
#pragma once

#include "ChartLoader.h"
#include "Options.h"
#include "Source.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>
#include <stop_token>
#include <thread>

namespace viewer {

/// Reads one file or text in a thread of its own and makes its chart. GUI thread only; the end of
/// the job gives reading up and waits for it.
class LoadJob : public QObject {
    Q_OBJECT

public:
    LoadJob(Source source, Options options, QObject* parent = nullptr);
    ~LoadJob() override;

    void start();
    /// Gives up; `cancelled` follows, unless the chart is there already.
    void cancel();

    /// The chart, once, after `loaded`.
    Chart takeChart();
    const Source& source() const { return from; }

Q_SIGNALS:
    /// Bytes and rows so far; `size` is 0 where nobody knows.
    void progressed(qint64 bytes, qint64 size, qint64 rows);
    // Exactly one of these ends the job; its slot may delete it.
    void loaded();
    void failed(const QString& message);
    void cancelled();

private:
    void run(const std::stop_token& stop);
    template <class Function>
    void tell(Function function);

    Source from;
    Options options;
    std::optional<Chart> chart;
    std::jthread thread;
};

} // namespace viewer
