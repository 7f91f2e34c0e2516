// SPDX-License-Identifier: MIT
#include "ZembraItemModelSamples.h"

#include <QAbstractItemModel>
#include <QDateTime>
#include <QPointer>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

namespace zembra {

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

double secondsSinceEpoch(const QDateTime& time) {
    return time.isValid() ? static_cast<double>(time.toMSecsSinceEpoch()) / 1000.0 : missing;
}

double numberOf(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return secondsSinceEpoch(value.toDateTime());
    case QMetaType::QDate:
        return secondsSinceEpoch(value.toDate().startOfDay(Qt::UTC));
    default:
        break;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? number : missing;
}

} // namespace

struct ZembraItemModelSamples::Private {
    explicit Private(ZembraItemModelSamples* owner) : owner(owner) {}

    ZembraItemModelSamples* owner;
    QPointer<QAbstractItemModel> model;
    int xColumn = 0;
    int yColumn = 1;
    int role = Qt::DisplayRole;
    std::function<void(const Samples&)> feed;
    // What the model holds, row by row.
    std::vector<double> x;
    std::vector<double> y;
    Samples samples;
    bool isWaiting = false;

    void connectTo(QAbstractItemModel* source);
    bool concerns(const QModelIndex& parent) const { return !parent.isValid(); }
    double valueAt(int row, int column) const;
    void readRows(int first, int last);
    void insertRows(int first, int last);
    void removeRows(int first, int last);
    void changeItems(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles);
    void readAll();
    void scheduleFeeding();
    void feedSeries();
};

void ZembraItemModelSamples::Private::connectTo(QAbstractItemModel* source) {
    using Model = QAbstractItemModel;
    const auto reread = [this] { readAll(); };
    const auto rereadAll = [&](auto signal) { connect(source, signal, owner, reread); };
    rereadAll(&Model::modelReset);
    rereadAll(&Model::layoutChanged);
    rereadAll(&Model::rowsMoved);
    rereadAll(&Model::columnsInserted);
    rereadAll(&Model::columnsRemoved);
    rereadAll(&Model::columnsMoved);
    connect(source, &Model::rowsInserted, owner,
            [this](const QModelIndex& parent, int first, int last) {
                if (concerns(parent))
                    insertRows(first, last);
            });
    connect(source, &Model::rowsRemoved, owner,
            [this](const QModelIndex& parent, int first, int last) {
                if (concerns(parent))
                    removeRows(first, last);
            });
    connect(source, &Model::dataChanged, owner,
            [this](const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) { changeItems(topLeft, bottomRight, roles); });
    // The model pointer is null by then.
    connect(source, &QObject::destroyed, owner, reread);
}

double ZembraItemModelSamples::Private::valueAt(int row, int column) const {
    return numberOf(model->index(row, column).data(role));
}

void ZembraItemModelSamples::Private::readRows(int first, int last) {
    for (int row = first; row <= last; ++row) {
        const auto i = static_cast<std::size_t>(row);
        x[i] = xColumn < 0 ? row : valueAt(row, xColumn);
        y[i] = valueAt(row, yColumn);
    }
    scheduleFeeding();
}

void ZembraItemModelSamples::Private::insertRows(int first, int last) {
    const auto count = static_cast<std::size_t>(last - first + 1);
    if (static_cast<std::size_t>(model->rowCount()) != y.size() + count)
        return readAll();
    x.insert(x.begin() + first, count, missing);
    y.insert(y.begin() + first, count, missing);
    // Rows counted from 0 are counted anew.
    readRows(first, xColumn < 0 ? static_cast<int>(y.size()) - 1 : last);
}

void ZembraItemModelSamples::Private::removeRows(int first, int last) {
    // A model that has kept quiet about changes is read anew.
    if (static_cast<std::size_t>(last) >= y.size())
        return readAll();
    x.erase(x.begin() + first, x.begin() + last + 1);
    y.erase(y.begin() + first, y.begin() + last + 1);
    readRows(first, xColumn < 0 ? static_cast<int>(y.size()) - 1 : first - 1);
}

void ZembraItemModelSamples::Private::changeItems(const QModelIndex& topLeft,
                                                  const QModelIndex& bottomRight,
                                                  const QList<int>& roles) {
    if (!topLeft.isValid() || !concerns(topLeft.parent()) ||
        (!roles.isEmpty() && !roles.contains(role)))
        return;
    const auto within = [&](int column) {
        return column >= topLeft.column() && column <= bottomRight.column();
    };
    if (within(xColumn) || within(yColumn))
        readRows(topLeft.row(), std::min(bottomRight.row(), static_cast<int>(y.size()) - 1));
}

void ZembraItemModelSamples::Private::readAll() {
    const int count = model ? model->rowCount() : 0;
    x.assign(static_cast<std::size_t>(count), missing);
    y = x;
    readRows(0, count - 1);
}

void ZembraItemModelSamples::Private::scheduleFeeding() {
    if (std::exchange(isWaiting, true))
        return;
    // A series that was set in between has been fed already.
    const auto feedIfWaiting = [this] {
        if (isWaiting)
            feedSeries();
    };
    QMetaObject::invokeMethod(owner, feedIfWaiting, Qt::QueuedConnection);
}

void ZembraItemModelSamples::Private::feedSeries() {
    isWaiting = false;
    samples = Samples(x, y);
    if (feed)
        feed(samples);
    Q_EMIT owner->samplesChanged();
}

ZembraItemModelSamples::ZembraItemModelSamples(QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this)) {}

ZembraItemModelSamples::~ZembraItemModelSamples() = default;

void ZembraItemModelSamples::setModel(QAbstractItemModel* model) {
    if (d->model == model)
        return;
    if (d->model)
        disconnect(d->model, nullptr, this, nullptr);
    d->model = model;
    if (model)
        d->connectTo(model);
    d->readAll();
}

void ZembraItemModelSamples::setColumns(int x, int y) {
    d->xColumn = x;
    d->yColumn = y;
    d->readAll();
}

void ZembraItemModelSamples::setRole(int role) {
    d->role = role;
    d->readAll();
}

void ZembraItemModelSamples::setSeries(std::shared_ptr<LineSeries> series) {
    d->feed = nullptr;
    if (!series)
        return;
    d->feed = [series = std::move(series)](const Samples& samples) { series->setSamples(samples); };
    d->feedSeries();
}

void ZembraItemModelSamples::setSeries(std::shared_ptr<ScatterSeries> series) {
    d->feed = nullptr;
    if (!series)
        return;
    d->feed = [series = std::move(series)](const Samples& samples) { series->setSamples(samples); };
    d->feedSeries();
}

QAbstractItemModel* ZembraItemModelSamples::model() const {
    return d->model;
}

int ZembraItemModelSamples::xColumn() const {
    return d->xColumn;
}

int ZembraItemModelSamples::yColumn() const {
    return d->yColumn;
}

int ZembraItemModelSamples::role() const {
    return d->role;
}

const Samples& ZembraItemModelSamples::samples() const {
    return d->samples;
}

} // namespace zembra
