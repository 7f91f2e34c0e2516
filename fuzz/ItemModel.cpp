// SPDX-License-Identifier: MIT
// Changes of an item model from bytes: a series that follows the model always holds its columns.
#include "Bytes.h"

#include <ZembraItemModelSamples.h>

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>
#include <memory>

using zembra::LineSeries;
using zembra::Samples;
using zembra::ScatterSeries;
using zembra::ZembraItemModelSamples;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();
constexpr int roles[] = {Qt::DisplayRole, Qt::UserRole};

void makeApplication() {
    static int count = 1;
    static char name[] = "fuzz_ItemModel";
    static char* names[] = {name, nullptr};
    static auto* const made = new QCoreApplication(count, names);
    (void)made;
}

/// What an item holds, and the number that it stands for.
struct Item {
    QVariant value;
    double number = gap;
};

Item makeItem(fuzz::Bytes& bytes) {
    const double number = bytes.number();
    const auto whole = static_cast<int>(bytes.byte()) - 100;
    switch (bytes.choice(9)) {
    case 0:
        return {};
    case 1:
        return {QVariant(whole), static_cast<double>(whole)};
    case 2:
        return {QVariant(QString::number(whole)), static_cast<double>(whole)};
    case 3:
        return {QVariant(QStringLiteral("no number")), gap};
    case 4:
        return {QVariant(QDateTime::fromMSecsSinceEpoch(qint64{whole} * 100000, Qt::UTC)),
                static_cast<double>(whole) * 100.0};
    case 5:
        return {QVariant(QDate(1970, 1, 1).addDays(whole)), static_cast<double>(whole) * 86400.0};
    case 6:
        return {QVariant(QDateTime()), gap};
    case 7:
        return {QVariant(QStringList()), gap};
    default:
        return {QVariant(number), number};
    }
}

/// A table whose rows may have rows of their own below them. It tells everything it does, as a
/// model must, with any rows and columns.
class Model : public QAbstractItemModel {
public:
    QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        if (row < 0 || column < 0 || row >= rowCount(parent) || column >= columnCount(parent))
            return {};
        return createIndex(row, column,
                           parent.isValid() ? rows[static_cast<std::size_t>(parent.row())].id : 0);
    }
    QModelIndex parent(const QModelIndex& child) const override {
        for (std::size_t row = 0; child.internalId() != 0 && row < rows.size(); ++row)
            if (rows[row].id == child.internalId())
                return createIndex(static_cast<int>(row), 0, quintptr{0});
        return {};
    }
    int rowCount(const QModelIndex& parent) const override {
        if (!parent.isValid())
            return static_cast<int>(rows.size());
        const bool isTop = parent.internalId() == 0 && parent.column() == 0;
        return isTop ? rows[static_cast<std::size_t>(parent.row())].children : 0;
    }
    int columnCount(const QModelIndex&) const override { return columns; }
    QVariant data(const QModelIndex& index, int role) const override {
        // Below the top level lies what must not be seen.
        if (index.internalId() != 0)
            return 4242.0;
        return item(index.row(), index.column(), role).value;
    }

    Item item(int row, int column, int role) const {
        if (row < 0 || row >= rowCount({}) || column < 0 || column >= columns)
            return {};
        const Cell& cell =
            rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
        return role == roles[0] ? cell.shown : role == roles[1] ? cell.hidden : Item{};
    }

    void change(fuzz::Bytes& bytes) {
        const int count = rowCount({});
        switch (bytes.choice(12)) {
        case 0:
        case 1: {
            const int first = bytes.choice(count + 1);
            insertAt(first, 1 + bytes.choice(6), bytes);
            break;
        }
        case 2: {
            const int first = bytes.choice(count + 1);
            removeAt(first, 1 + bytes.choice(6));
            break;
        }
        case 3: {
            const int first = bytes.choice(count + 1);
            const int moved = 1 + bytes.choice(4);
            moveFrom(first, moved, bytes.choice(count + 1));
            break;
        }
        case 4:
        case 5:
            setItems(bytes);
            break;
        case 6:
            reset(bytes);
            break;
        case 7:
            rearrange(bytes);
            break;
        case 8:
            insertColumnAt(bytes.choice(columns + 1), bytes);
            break;
        case 9:
            removeColumnAt(bytes.choice(columns + 1));
            break;
        case 10:
            changeBelow(bytes);
            break;
        default: {
            const int from = bytes.choice(columns + 1);
            moveColumn(from, bytes.choice(columns + 1));
            break;
        }
        }
    }

private:
    struct Cell {
        Item shown;
        Item hidden;
    };
    struct Row {
        quintptr id = 0;
        int children = 0;
        std::vector<Cell> cells;
    };

    Row makeRow(fuzz::Bytes& bytes) {
        Row row{++lastId, 0, {}};
        for (int i = 0; i < columns; ++i)
            row.cells.push_back({makeItem(bytes), makeItem(bytes)});
        return row;
    }
    void insertAt(int first, int count, fuzz::Bytes& bytes) {
        if (rows.size() > 200)
            return;
        beginInsertRows({}, first, first + count - 1);
        for (int i = 0; i < count; ++i)
            rows.insert(rows.begin() + first, makeRow(bytes));
        endInsertRows();
    }
    void removeAt(int first, int count) {
        const int last = std::min(first + count, rowCount({})) - 1;
        if (last < first)
            return;
        beginRemoveRows({}, first, last);
        rows.erase(rows.begin() + first, rows.begin() + last + 1);
        endRemoveRows();
    }
    void moveFrom(int first, int count, int target) {
        const int last = std::min(first + count, rowCount({})) - 1;
        if (last < first || !beginMoveRows({}, first, last, {}, target))
            return;
        if (target > last)
            std::rotate(rows.begin() + first, rows.begin() + last + 1, rows.begin() + target);
        else
            std::rotate(rows.begin() + target, rows.begin() + first, rows.begin() + last + 1);
        endMoveRows();
    }
    void setItems(fuzz::Bytes& bytes) {
        if (rows.empty() || columns == 0)
            return;
        const int top = bytes.choice(rowCount({}));
        const int bottom = std::min(top + bytes.choice(4), rowCount({}) - 1);
        const int left = bytes.choice(columns);
        const int right = std::min(left + bytes.choice(3), columns - 1);
        // 0 tells no role, which means all of them.
        const int told = bytes.choice(3);
        for (int row = top; row <= bottom; ++row) {
            for (int column = left; column <= right; ++column) {
                Cell& cell =
                    rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
                if (told != 2)
                    cell.shown = makeItem(bytes);
                if (told != 1)
                    cell.hidden = makeItem(bytes);
            }
        }
        Q_EMIT dataChanged(index(top, left, {}), index(bottom, right, {}),
                           told == 0 ? QList<int>{} : QList<int>{roles[told - 1]});
    }
    void reset(fuzz::Bytes& bytes) {
        beginResetModel();
        columns = bytes.choice(5);
        rows.clear();
        for (int i = bytes.choice(12); i > 0; --i)
            rows.push_back(makeRow(bytes));
        endResetModel();
    }
    // Sorted and filtered models do this; the number of rows may change as well.
    void rearrange(fuzz::Bytes& bytes) {
        Q_EMIT layoutAboutToBeChanged();
        if (bytes.flag() && !rows.empty())
            rows.pop_back();
        if (bytes.flag())
            std::reverse(rows.begin(), rows.end());
        else
            std::sort(rows.begin(), rows.end(),
                      [](const Row& one, const Row& other) { return one.id < other.id; });
        Q_EMIT layoutChanged();
    }
    void insertColumnAt(int column, fuzz::Bytes& bytes) {
        if (columns > 6)
            return;
        beginInsertColumns({}, column, column);
        ++columns;
        for (Row& row : rows)
            row.cells.insert(row.cells.begin() + column, {makeItem(bytes), makeItem(bytes)});
        endInsertColumns();
    }
    void removeColumnAt(int column) {
        if (column >= columns)
            return;
        beginRemoveColumns({}, column, column);
        --columns;
        for (Row& row : rows)
            row.cells.erase(row.cells.begin() + column);
        endRemoveColumns();
    }
    void moveColumn(int from, int to) {
        if (from >= columns || !beginMoveColumns({}, from, from, {}, to))
            return;
        for (Row& row : rows) {
            const auto cell = row.cells.begin();
            if (to > from)
                std::rotate(cell + from, cell + from + 1, cell + to);
            else
                std::rotate(cell + to, cell + from, cell + from + 1);
        }
        endMoveColumns();
    }
    void changeBelow(fuzz::Bytes& bytes) {
        if (rows.empty() || columns == 0)
            return;
        const int above = bytes.choice(rowCount({}));
        const QModelIndex top = index(above, 0, {});
        Row& row = rows[static_cast<std::size_t>(above)];
        const int count = 1 + bytes.choice(5);
        switch (bytes.choice(3)) {
        case 0:
            beginInsertRows(top, 0, count - 1);
            row.children += count;
            endInsertRows();
            break;
        case 1:
            if (row.children < count)
                break;
            beginRemoveRows(top, 0, count - 1);
            row.children -= count;
            endRemoveRows();
            break;
        default:
            if (row.children > 0)
                Q_EMIT dataChanged(index(0, 0, top), index(row.children - 1, columns - 1, top));
            break;
        }
    }

    std::vector<Row> rows;
    int columns = 2;
    quintptr lastId = 0;
};

bool isSame(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

void checkSamples(const Samples& samples, const Model* model,
                  const ZembraItemModelSamples& feeder) {
    const int count = model ? model->rowCount({}) : 0;
    fuzz::require(samples.size() == static_cast<std::size_t>(count), "a sample for every row");
    for (int row = 0; row < count; ++row) {
        const auto i = static_cast<std::size_t>(row);
        const double x =
            feeder.xColumn() < 0 ? row : model->item(row, feeder.xColumn(), feeder.role()).number;
        const double y = model->item(row, feeder.yColumn(), feeder.role()).number;
        fuzz::require(isSame(samples.x(i), x), "x as in the model");
        fuzz::require(isSame(samples.y(i), y), "y as in the model");
    }
}

/// A feeder, its series and two models to choose from, of which one may be gone.
struct World {
    std::unique_ptr<Model> models[2] = {std::make_unique<Model>(), std::make_unique<Model>()};
    Model* fed = nullptr;
    ZembraItemModelSamples feeder;
    std::shared_ptr<LineSeries> line = std::make_shared<LineSeries>();
    std::shared_ptr<ScatterSeries> scatter = std::make_shared<ScatterSeries>();
    bool isLineFed = true;
    int fedTimes = 0;

    World() {
        feeder.setSeries(line);
        QObject::connect(&feeder, &ZembraItemModelSamples::samplesChanged, &feeder,
                         [this] { ++fedTimes; });
    }

    void act(fuzz::Bytes& bytes) {
        std::unique_ptr<Model>& model = models[bytes.choice(2)];
        switch (bytes.choice(16)) {
        case 0:
            fed = model.get();
            feeder.setModel(fed);
            break;
        case 1:
            fed = nullptr;
            feeder.setModel(nullptr);
            break;
        case 2:
            if (model.get() == fed)
                fed = nullptr;
            model = std::make_unique<Model>();
            break;
        case 3: {
            const int x = bytes.choice(7) - 1;
            feeder.setColumns(x, bytes.choice(7) - 1);
            break;
        }
        case 4:
            feeder.setRole(bytes.flag() ? roles[0] : roles[1]);
            break;
        case 5:
            isLineFed = bytes.flag();
            if (isLineFed)
                feeder.setSeries(line);
            else
                feeder.setSeries(scatter);
            break;
        default:
            model->change(bytes);
            break;
        }
    }

    void settle() {
        fedTimes = 0;
        QCoreApplication::sendPostedEvents();
        fuzz::require(fedTimes <= 1, "one change a turn");
        fuzz::require(feeder.model() == fed, "the model that was set");
        checkSamples(feeder.samples(), fed, feeder);
        checkSamples(isLineFed ? line->samples() : scatter->samples(), fed, feeder);
    }
};

void run(fuzz::Bytes bytes) {
    const fuzz::Stopwatch stopwatch;
    World world;
    world.feeder.setModel(world.fed = world.models[0].get());
    while (!bytes.isEmpty()) {
        // Several changes in one turn of the event loop, as well as one by one.
        for (int i = bytes.choice(4); i >= 0; --i)
            world.act(bytes);
        world.settle();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    makeApplication();
    fuzz::Stopwatch::attend([&] { run({data, size}); });
    return 0;
}
