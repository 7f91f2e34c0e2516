// SPDX-License-Identifier: MIT
// Random input against a model of the view. ZEMBRA_TEST_SEED and ZEMBRA_TEST_SEQUENCES ask for
// other or more sequences than the usual ones.
#include <ZembraGraphicsView.h>

#include "support/Input.h"
#include "support/ShownView.h"
#include "support/Shrink.h"

#include <QRegularExpression>

#include <random>

namespace definitions = zembra::ZembraNavigationDefinitions;
using zembra::InteractionMode;
using zembra::Scale;

namespace {

constexpr int stepsPerSequence = 200;

enum class Kind {
    Press,
    Move,
    Release,
    OtherPress,
    OtherRelease,
    DoubleClick,
    Wheel,
    ZoomInKey,
    ZoomOutKey,
    BoxKey,
    LeaveKey,
    OtherKey,
    FocusOut,
    Resize,
    Viewport,
    NewPlot,
    NoPlot,
    Mode,
    Actions,
    Axes,
    PanModifier,
    WheelEnabled,
    Paint,
    Count
};

const char* const kindNames[] = {
    "press",     "move",        "release",      "right press",   "right release", "double click",
    "wheel",     "zoom in key", "zoom out key", "box key",       "leave key",     "other key",
    "focus out", "resize",      "viewport",     "new plot",      "no plot",       "mode",
    "action",    "axes",        "pan modifier", "wheel enabled", "paint"};
static_assert(std::size(kindNames) == static_cast<std::size_t>(Kind::Count));

// One step. What `x`, `y` and `choice` mean depends on the kind.
struct Step {
    Kind kind = Kind::Paint;
    int x = 0;
    int y = 0;
    int choice = 0;
};

using Sequence = std::vector<Step>;

QString text(const Sequence& sequence) {
    QString result;
    for (const Step& step : sequence)
        result += QStringLiteral("  %1 (%2, %3) choice %4\n")
                      .arg(QString::fromLatin1(kindNames[static_cast<std::size_t>(step.kind)]))
                      .arg(step.x)
                      .arg(step.y)
                      .arg(step.choice);
    return result;
}

Sequence randomSequence(std::mt19937& random) {
    // Often enough what makes and ends drags, now and then what interferes with them.
    std::vector<double> weights(static_cast<std::size_t>(Kind::Count), 1.0);
    const auto weigh = [&](Kind kind, double weight) {
        weights[static_cast<std::size_t>(kind)] = weight;
    };
    weigh(Kind::Press, 12.0);
    weigh(Kind::Move, 24.0);
    weigh(Kind::Release, 10.0);
    weigh(Kind::Wheel, 6.0);
    weigh(Kind::BoxKey, 4.0);
    weigh(Kind::Mode, 3.0);
    weigh(Kind::Paint, 3.0);
    weigh(Kind::NoPlot, 0.3);
    weigh(Kind::Axes, 0.5);
    weigh(Kind::PanModifier, 0.5);
    weigh(Kind::WheelEnabled, 0.5);
    std::discrete_distribution<int> kind(weights.begin(), weights.end());
    std::uniform_int_distribution<int> x(-60, 460);
    std::uniform_int_distribution<int> y(-60, 360);
    std::uniform_int_distribution<int> choice(0, 11);
    Sequence sequence;
    for (int i = 0; i < stepsPerSequence; ++i)
        sequence.push_back({static_cast<Kind>(kind(random)), x(random), y(random), choice(random)});
    return sequence;
}

std::shared_ptr<zembra::Plot> plotOfKind(int choice) {
    auto plot = makePlot();
    switch (choice % 6) {
    case 1:
        plot->axis(2).setScale(Scale::log());
        plot->axis(0).setScale(Scale::log());
        break;
    case 2:
        plot->axis(2).setScale(Scale::time());
        plot->setAxisScale(2, 1.7e9, 1.7e9 + 3600.0);
        break;
    case 3:
        plot->setAxisScale(2, 10.0, 0.0);
        plot->setAxisScale(0, 1.0, -1.0);
        break;
    case 4:
        plot->setAxisEnabled(1, true);
        plot->setAxisEnabled(3, true);
        break;
    case 5:
        return std::make_shared<zembra::Plot>();
    default:
        break;
    }
    return plot;
}

// What a view has to be like after each step, told without looking into it.
class Model {
public:
    Model() { shown.settle(); }

    // Takes one step and returns what was wrong after it, or nothing.
    QString take(const Step& step) {
        shown.log.take();
        const QString expected = act(step);
        const QString wrong = checkSignals(expected);
        return wrong.isEmpty() ? checkState() : wrong;
    }

private:
    // Acts on the view and on the model; returns the pattern of the signals that must follow.
    QString act(const Step& step) {
        zembra::ZembraGraphicsView& view = shown.view;
        const QPointF point(step.x, step.y);
        const QString nothing = QStringLiteral("^$");
        const QString perhapsZoomed = QStringLiteral("^((axis 2 )?(axis 0 )?updated )?$");
        const QString reset = view.plot() ? QStringLiteral("^updated reset $") : nothing;
        switch (step.kind) {
        case Kind::Press: {
            const auto held = step.choice % 3 ? Qt::NoModifier : Qt::ShiftModifier;
            if (mode == InteractionMode::BoxZoom) {
                selecting = selecting || view.canvasSceneRect().contains(point);
                if (view.canvasSceneRect().contains(point))
                    origin = point;
            } else if (panModifier == Qt::NoModifier || held == panModifier) {
                panning = true;
            }
            accepts = true;
            accepted = input::press(view, point, held);
            return QStringLiteral("^clicked $");
        }
        case Kind::Move:
            input::move(view, point);
            return panning ? perhapsZoomed : nothing;
        case Kind::Release: {
            const bool released = std::exchange(selecting, false);
            panning = false;
            const QRectF box = QRectF(origin, point).normalized() & view.canvasSceneRect();
            input::release(view, point);
            if (!released || box.width() < 3.0 || box.height() < 3.0)
                return nothing;
            // A box zoom that changes something ends box zoom.
            if (!shown.log.lines.isEmpty())
                mode = InteractionMode::Pan;
            return QStringLiteral("^((axis 2 )?(axis 0 )?updated mode 0 )?$");
        }
        case Kind::OtherPress:
            input::press(view, point, Qt::NoModifier, Qt::RightButton);
            return nothing;
        case Kind::OtherRelease:
            input::release(view, point, Qt::NoModifier, Qt::RightButton);
            return nothing;
        case Kind::DoubleClick:
            input::doubleClick(view, point);
            return reset;
        case Kind::Wheel: {
            const QPoint delta = step.choice % 2 ? QPoint(0, (step.choice - 5) * 20)
                                                 : QPoint((step.choice - 5) * 20, 0);
            const bool held = step.choice % 5 != 0;
            accepted = input::wheel(view, point, delta, held ? Qt::AltModifier : Qt::NoModifier);
            accepts = !shown.log.lines.isEmpty();
            return wheelEnabled && held ? perhapsZoomed : nothing;
        }
        case Kind::ZoomInKey:
            accepts = true;
            accepted =
                input::key(receiver(step), QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier);
            return perhapsZoomed;
        case Kind::ZoomOutKey:
            accepts = true;
            accepted =
                input::key(receiver(step), QEvent::KeyPress, Qt::Key_Minus, Qt::ControlModifier);
            return perhapsZoomed;
        case Kind::BoxKey:
            // The key reaches the action as a shortcut.
            view.navigationActions().at(3)->trigger();
            return changeMode(mode == InteractionMode::Pan ? InteractionMode::BoxZoom
                                                           : InteractionMode::Pan);
        case Kind::LeaveKey:
            accepts = mode == InteractionMode::BoxZoom;
            accepted = input::key(receiver(step), QEvent::KeyPress, Qt::Key_Escape);
            return accepts ? changeMode(InteractionMode::Pan) : nothing;
        case Kind::OtherKey:
            accepts = false;
            accepted = input::key(receiver(step), QEvent::KeyPress, Qt::Key_A);
            return nothing;
        case Kind::FocusOut: {
            endDrag();
            QFocusEvent event(QEvent::FocusOut);
            QCoreApplication::sendEvent(&view, &event);
            return nothing;
        }
        case Kind::Resize:
            view.resize(std::max(step.x, 5), std::max(step.y, 5));
            return nothing;
        case Kind::Viewport:
            endDrag();
            view.setViewport(new QWidget);
            return nothing;
        case Kind::NewPlot:
            endDrag();
            view.setPlot(plotOfKind(step.choice));
            return nothing;
        case Kind::NoPlot:
            endDrag();
            view.setPlot(nullptr);
            return nothing;
        case Kind::Mode: {
            const auto next = static_cast<InteractionMode>(step.choice % 2);
            view.setInteractionMode(next);
            return changeMode(next);
        }
        case Kind::Actions: {
            const int index = step.choice % 3;
            view.navigationActions().at(index)->trigger();
            return index == 2 ? reset : perhapsZoomed;
        }
        case Kind::Axes:
            if (const auto plot = view.plot())
                plot->setAxisEnabled(step.choice % 4, step.choice >= 4);
            return nothing;
        case Kind::PanModifier:
            panModifier = step.choice % 3 ? Qt::NoModifier : Qt::ShiftModifier;
            view.setPanModifier(panModifier);
            return nothing;
        case Kind::WheelEnabled:
            wheelEnabled = step.choice % 3 != 0;
            view.setWheelZoomEnabled(wheelEnabled);
            return nothing;
        case Kind::Paint:
        case Kind::Count:
            break;
        }
        view.viewport()->repaint();
        return nothing;
    }

    QObject& receiver(const Step& step) {
        return step.choice % 2 ? static_cast<QObject&>(shown.view) : *shown.view.viewport();
    }

    void endDrag() {
        panning = false;
        selecting = false;
    }

    QString changeMode(InteractionMode next) {
        endDrag();
        return std::exchange(mode, next) == next
                   ? QStringLiteral("^$")
                   : QStringLiteral("^mode %1 $").arg(static_cast<int>(next));
    }

    QString checkSignals(const QString& expected) {
        QString emitted;
        for (const QString& line : std::as_const(shown.log.lines))
            emitted += line + QLatin1Char(' ');
        if (!QRegularExpression(expected).match(emitted).hasMatch())
            return QStringLiteral("emitted \"%1\" where \"%2\" is due").arg(emitted, expected);
        // An update without an axis is due to a reset only.
        if (emitted == QLatin1String("updated "))
            return QStringLiteral("announced an update of no axis");
        for (const auto& [first, second] : std::as_const(shown.log.ranges))
            if (!std::isfinite(first) || !std::isfinite(second) || first == second)
                return QStringLiteral("announced the range %1..%2").arg(first).arg(second);
        if (accepted != accepts)
            return QStringLiteral("event was%1 accepted").arg(accepted ? "" : " not");
        accepted = accepts = false;
        return {};
    }

    QString checkState() const {
        const zembra::ZembraGraphicsView& view = shown.view;
        if (panning && selecting)
            return QStringLiteral("two drags at a time");
        if (view.interactionMode() != mode)
            return QStringLiteral("mode is %1").arg(static_cast<int>(view.interactionMode()));
        if (view.navigationActions().at(3)->isChecked() != (mode == InteractionMode::BoxZoom))
            return QStringLiteral("action is out of step with the mode");
        if (!shown.band())
            return QStringLiteral("not one rubber band");
        if (shown.isSelecting() != selecting)
            return QStringLiteral("rubber band is %1")
                .arg(selecting ? QStringLiteral("hidden") : QStringLiteral("shown"));
        const Qt::CursorShape cursor = panning                            ? Qt::ClosedHandCursor
                                       : mode == InteractionMode::BoxZoom ? Qt::CrossCursor
                                                                          : Qt::ArrowCursor;
        if (shown.cursor() != cursor)
            return QStringLiteral("cursor is %1 instead of %2").arg(shown.cursor()).arg(cursor);
        if (view.mapToScene(QPoint(3, 4)) != QPointF(3, 4) || !view.transform().isIdentity())
            return QStringLiteral("pixels are not scene coordinates");
        if (const auto plot = view.plot())
            for (const int axis : {0, 1, 2, 3}) {
                const zembra::ScaleMap map = plot->scaleMap(axis);
                if (!std::isfinite(map.s1()) || !std::isfinite(map.s2()) || map.s1() == map.s2())
                    return QStringLiteral("axis %1 ranges from %2 to %3")
                        .arg(axis)
                        .arg(map.s1())
                        .arg(map.s2());
            }
        return {};
    }

    ShownView shown;
    InteractionMode mode = InteractionMode::Pan;
    Qt::KeyboardModifier panModifier = Qt::NoModifier;
    bool wheelEnabled = true;
    bool panning = false;
    bool selecting = false;
    QPointF origin;
    // Whether the last event was accepted, and whether it had to be.
    bool accepted = false;
    bool accepts = false;
};

QString failure(const Sequence& sequence) {
    Model model;
    for (std::size_t i = 0; i < sequence.size(); ++i) {
        const QString wrong = model.take(sequence[i]);
        if (!wrong.isEmpty())
            return QStringLiteral("step %1: %2").arg(i + 1).arg(wrong);
    }
    return {};
}

unsigned environmentNumber(const char* name, unsigned fallback) {
    bool isNumber = false;
    const unsigned number = qEnvironmentVariable(name).toUInt(&isNumber);
    return isNumber ? number : fallback;
}

} // namespace

class ZembraGraphicsViewRandomTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void shrinkingLeavesOnlyWhatTheFailureNeeds() {
        std::vector<int> numbers;
        for (int i = 0; i < 200; ++i)
            numbers.push_back(i);
        int runs = 0;
        const std::function<bool(const std::vector<int>&)> fails = [&](const auto& sequence) {
            ++runs;
            const auto seven = std::find(sequence.begin(), sequence.end(), 7);
            return std::find(seven, sequence.end(), 150) != sequence.end();
        };
        QCOMPARE(shrunk(numbers, fails), (std::vector<int>{7, 150}));
        QVERIFY(runs < 1000);
        QCOMPARE(shrunk<int>({}, fails), std::vector<int>{});
    }

    void randomInputKeepsEveryInvariant() {
        const unsigned seed = environmentNumber("ZEMBRA_TEST_SEED", 20240229);
        const unsigned count = environmentNumber("ZEMBRA_TEST_SEQUENCES", 200);
        qInfo("seed %u, %u sequences of %d steps", seed, count, stepsPerSequence);
        for (unsigned i = 0; i < count; ++i) {
            std::mt19937 random(seed + i);
            const Sequence sequence = randomSequence(random);
            if (failure(sequence).isEmpty())
                continue;
            const Sequence shortest = shrunk<Step>(
                sequence, [](const Sequence& shorter) { return !failure(shorter).isEmpty(); });
            QFAIL(qPrintable(QStringLiteral("seed %1: %2\n%3")
                                 .arg(seed + i)
                                 .arg(failure(shortest), text(shortest))));
        }
    }
};

QTEST_MAIN(ZembraGraphicsViewRandomTest)
#include "ZembraGraphicsViewRandom_test.moc"
