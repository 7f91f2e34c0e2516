// SPDX-License-Identifier: MIT
#include "window/LiveSource.h"

#include "Failure.h"

#include <QPointer>
#include <QSocketNotifier>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace viewer {

namespace {

constexpr std::size_t sliceSize = std::size_t{1} << 20U;
constexpr int pollMilliseconds = 100;
constexpr int frameMilliseconds = 33;

} // namespace

LiveSource::LiveSource(const std::string& path, const Options& options, QObject* parent)
    : QObject(parent),
      file(path),
      live(path == "-" ? "standard input" : path, options),
      input(QString::fromStdString(path)),
      buffer(sliceSize, '\0') {
    poll.setSingleShot(true);
    connect(&poll, &QTimer::timeout, this, &LiveSource::readFile);
    frame.setSingleShot(true);
    frame.setInterval(frameMilliseconds);
    connect(&frame, &QTimer::timeout, this, &LiveSource::grown);
}

LiveSource::~LiveSource() = default;

void LiveSource::start() {
#ifdef Q_OS_UNIX
    if (file == "-") {
        notifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        connect(notifier.get(), &QSocketNotifier::activated, this, &LiveSource::readStandardInput);
        return;
    }
#endif
    if (!input.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        Q_EMIT failed(QString::fromStdString(file + ": cannot be read: ") + input.errorString());
        return;
    }
    poll.start(0);
}

void LiveSource::readFile() {
    if (!input.isOpen() || isReplaced()) {
        input.close();
        poll.start(pollMilliseconds);
        if (!input.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return;
        live.restart();
    }
    if (!input.isSequential() && input.size() < input.pos()) {
        input.seek(0);
        live.restart();
    }
    const qint64 count = input.read(buffer.data(), static_cast<qint64>(buffer.size()));
    const bool isFull = count == static_cast<qint64>(buffer.size());
    poll.start(isFull ? 0 : pollMilliseconds);
    if (count > 0)
        take({buffer.data(), static_cast<std::size_t>(count)});
}

// Programs that write logs put a new file in the place of a full one.
bool LiveSource::isReplaced() const {
#ifdef Q_OS_UNIX
    struct stat opened {};
    struct stat named {};
    return fstat(input.handle(), &opened) == 0 && stat(file.c_str(), &named) == 0 &&
           (opened.st_ino != named.st_ino || opened.st_dev != named.st_dev);
#else
    return false;
#endif
}

void LiveSource::readStandardInput() {
#ifdef Q_OS_UNIX
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count > 0) {
        take({buffer.data(), static_cast<std::size_t>(count)});
        return;
    }
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    notifier->setEnabled(false);
    // The last line may lack its end.
    const QPointer<LiveSource> self(this);
    take("\n");
    if (!self)
        return;
    if (live.plot())
        Q_EMIT ended();
    else if (!isStopped)
        Q_EMIT failed(QStringLiteral("standard input: no rows came"));
#endif
}

void LiveSource::take(std::string_view bytes) {
    const bool hadPlot = live.plot() != nullptr;
    try {
        if (!live.feed(bytes))
            return;
    } catch (const Failure& failure) {
        isStopped = true;
        poll.stop();
        if (notifier)
            notifier->setEnabled(false);
        // The slot may delete this.
        Q_EMIT failed(QString::fromUtf8(failure.what()));
        return;
    }
    if (!hadPlot)
        Q_EMIT started();
    else if (!frame.isActive())
        frame.start();
}

} // namespace viewer
