// SPDX-License-Identifier: MIT
// The value under the pointer stays under the pointer, whatever the labels of the axes do.
#include <ZembraGraphicsView.h>

#include "support/Input.h"
#include "support/ShownView.h"

#include <array>
#include <random>

using zembra::Scale;

namespace {

constexpr int stepsPerScale = 2500;
constexpr double mostDrift = 0.01;

struct AxisSetup {
    Scale scale;
    double first = 0.0;
    double second = 1.0;
    // The least and greatest span that rounding allows to tell apart to a fraction of a pixel, on
    // the even measure behind the axis.
    double leastSpan = 1e-3;
    double greatestSpan = 1e6;
};

struct Setup {
    const char* name;
    AxisSetup x;
    AxisSetup y;
};

const std::array<Setup, 6>& setups() {
    static const std::array<Setup, 6> all{{
        {"linear", {Scale::linear(), 0.0, 10.0}, {Scale::linear(), 0.0, 100.0}},
        // Labels from one digit to as many as a number can have.
        {"long numbers",
         {Scale::linear(), -123456.5, -123455.5, 1e-3, 1e13},
         {Scale::linear(), 98765.25, 98765.75, 1e-3, 1e13}},
        {"inverted", {Scale::linear(), 10.0, 0.0}, {Scale::linear(), 100.0, 0.0}},
        {"logarithmic",
         {Scale::log(), 1.0, 1e6, 0.01, 200.0},
         {Scale::log(), 1e-3, 1e3, 0.01, 200.0}},
        {"time", {Scale::time(), 1.7e9, 1.7e9 + 86400.0, 1.0, 3e9}, {Scale::linear(), 0.0, 100.0}},
        {"inverted time and logarithmic",
         {Scale::time(), 1.7e9 + 86400.0, 1.7e9, 1.0, 3e9},
         {Scale::log(), 1e3, 1e-3, 0.01, 200.0}},
    }};
    return all;
}

// Follows the two values under a pointer and keeps the greatest distance that they went.
class Pointer {
public:
    Pointer(const ShownView& shown, const QPointF& start)
        : shown(shown), x(shown.valueAt(2, start.x())), y(shown.valueAt(0, start.y())) {}

    // How far the values are from a point now. Units: logical pixels.
    double distance(const QPointF& point) const {
        return std::max(std::abs(shown.plot->scaleMap(2).transform(x) - point.x()),
                        std::abs(shown.plot->scaleMap(0).transform(y) - point.y()));
    }

private:
    const ShownView& shown;
    double x;
    double y;
};

class Drifter {
public:
    explicit Drifter(const Setup& setup, unsigned seed) : setup(setup), random(seed) {
        returnToStart();
        shown.settle();
    }

    void step() {
        leaveNoRangeBehind();
        if (random() % 4 == 0)
            wheelStep();
        else
            dragStep();
        ++steps;
    }

    int steps = 0;
    double worst = 0.0;
    int tooFar = 0;
    int paints = 0;
    QString worstStep;

private:
    void wheelStep() {
        endDrag();
        const QPointF point = pointInCanvas();
        const Pointer pointer(shown, point);
        input::wheel(shown.view, point, QPoint(0, direction()));
        note(QStringLiteral("wheel"), pointer, point);
        perhapsPaint(QStringLiteral("paint after wheel"), pointer, point);
    }

    void dragStep() {
        if (!isDragging) {
            at = pointInCanvas();
            input::press(shown.view, at);
            isDragging = true;
        }
        const Pointer pointer(shown, at);
        at += QPointF(randomInt(-40, 40), randomInt(-40, 40));
        input::move(shown.view, at);
        note(QStringLiteral("move"), pointer, at);
        perhapsPaint(QStringLiteral("paint after move"), pointer, at);
        if (random() % 10 == 0)
            endDrag();
    }

    void endDrag() {
        if (isDragging)
            input::release(shown.view, at);
        isDragging = false;
    }

    // Several steps may come between two paints.
    void perhapsPaint(const QString& what, const Pointer& pointer, const QPointF& point) {
        if (random() % 3 != 0)
            return;
        ++paints;
        shown.view.viewport()->repaint();
        note(what, pointer, point);
    }

    void note(const QString& what, const Pointer& pointer, const QPointF& point) {
        const double distance = pointer.distance(point);
        // A distance that is not a number counts as too far, too.
        if (!(distance < mostDrift))
            ++tooFar;
        if (distance <= worst)
            return;
        worst = distance;
        worstStep = QStringLiteral("%1 at step %2, x from %3 to %4, y from %5 to %6")
                        .arg(what)
                        .arg(steps)
                        .arg(shown.first(2), 0, 'g', 17)
                        .arg(shown.second(2), 0, 'g', 17)
                        .arg(shown.first(0), 0, 'g', 17)
                        .arg(shown.second(0), 0, 'g', 17);
    }

    static double evenSpan(const AxisSetup& axis, double first, double second) {
        return std::abs(axis.scale.transform(second) - axis.scale.transform(first));
    }

    // In or out at random, but back from spans that are too small or too large.
    int direction() {
        for (const auto& [id, axis] : {std::pair{2, &setup.x}, std::pair{0, &setup.y}}) {
            const double span = evenSpan(*axis, shown.first(id), shown.second(id));
            if (span < 2.0 * axis->leastSpan)
                return -120;
            if (span > 0.5 * axis->greatestSpan)
                return 120;
        }
        return random() % 2 ? 120 : -120;
    }

    // Zooming far out about a point beside the start and in again leads far away.
    void leaveNoRangeBehind() {
        bool isFar = false;
        for (const auto& [id, axis] : {std::pair{2, &setup.x}, std::pair{0, &setup.y}}) {
            const double first = axis->scale.transform(shown.first(id));
            const double second = axis->scale.transform(shown.second(id));
            const double span = std::abs(second - first);
            const double away = std::abs(first - axis->scale.transform(axis->first));
            isFar = isFar || span < axis->leastSpan || span > axis->greatestSpan ||
                    away > 20.0 * axis->greatestSpan ||
                    (away > 1e6 * span && axis->scale.isLinear());
        }
        if (!isFar)
            return;
        endDrag();
        returnToStart();
        shown.settle();
    }

    void returnToStart() {
        for (const auto& [id, axis] : {std::pair{2, &setup.x}, std::pair{0, &setup.y}}) {
            shown.plot->axis(id).setScale(axis->scale);
            shown.plot->setAxisScale(id, axis->first, axis->second);
        }
    }

    int randomInt(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    }

    QPointF pointInCanvas() {
        const QRect canvas = shown.canvas().toAlignedRect();
        return QPointF(randomInt(canvas.left(), canvas.right()),
                       randomInt(canvas.top(), canvas.bottom()));
    }

    const Setup& setup;
    std::mt19937 random;
    ShownView shown;
    bool isDragging = false;
    QPointF at;
};

} // namespace

class ZembraGraphicsViewDriftTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void valueUnderThePointerStaysThere_data() {
        QTest::addColumn<int>("index");
        for (std::size_t i = 0; i < setups().size(); ++i)
            QTest::newRow(setups()[i].name) << static_cast<int>(i);
    }
    void valueUnderThePointerStaysThere() {
        QFETCH(int, index);
        Drifter drifter(setups()[static_cast<std::size_t>(index)], 4711);
        for (int i = 0; i < stepsPerScale; ++i)
            drifter.step();
        QVERIFY(drifter.paints > stepsPerScale / 10);
        QVERIFY2(drifter.tooFar == 0,
                 qPrintable(QStringLiteral("%1 times too far, at worst by %2 px: %3")
                                .arg(drifter.tooFar)
                                .arg(drifter.worst)
                                .arg(drifter.worstStep)));
    }
};

QTEST_MAIN(ZembraGraphicsViewDriftTest)
#include "ZembraGraphicsViewDrift_test.moc"
