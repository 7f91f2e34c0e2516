// SPDX-License-Identifier: MIT
#include "LoadJob.h"

#include "Failure.h"

#include <QMetaObject>

#include <chrono>
#include <exception>
#include <utility>

namespace viewer {

LoadJob::LoadJob(Source source, Options options, QObject* parent)
    : QObject(parent), from(std::move(source)), options(std::move(options)) {}

LoadJob::~LoadJob() = default;

void LoadJob::start() {
    thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

void LoadJob::cancel() {
    thread.request_stop();
}

Chart LoadJob::takeChart() {
    Chart taken = std::move(chart).value_or(Chart());
    chart.reset();
    return taken;
}

// The thread ends before the job does, and with the job go the events that wait for it.
template <class Function>
void LoadJob::tell(Function function) {
    QMetaObject::invokeMethod(this, std::move(function), Qt::QueuedConnection);
}

void LoadJob::run(const std::stop_token& stop) {
    using Clock = std::chrono::steady_clock;
    Clock::time_point next = Clock::now();
    const auto progress = [&](std::int64_t bytes, std::int64_t size, std::size_t rows) {
        if (Clock::now() >= next) {
            next = Clock::now() + std::chrono::milliseconds(50);
            tell([this, bytes, size, rows] {
                Q_EMIT progressed(bytes, size, static_cast<qint64>(rows));
            });
        }
        return !stop.stop_requested();
    };
    const auto fail = [this](const std::string& message) {
        tell([this, text = QString::fromStdString(message)] { Q_EMIT failed(text); });
    };
    try {
        Chart made = loadChart(from, options, progress);
        // Shared so that the event can be copied.
        auto result = std::make_shared<Chart>(std::move(made));
        tell([this, result] {
            chart = std::move(*result);
            Q_EMIT loaded();
        });
    } catch (const ReadingCancelled&) {
        tell([this] { Q_EMIT cancelled(); });
    } catch (const Failure& failure) {
        fail(failure.what());
    } catch (const std::exception& error) {
        fail(from.name + ": " + error.what());
    }
}

} // namespace viewer
