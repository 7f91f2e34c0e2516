// SPDX-License-Identifier: MIT
#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/ContextTranslator.h"
#include "support/NavigationChrome.h"
#include "support/OffscreenScreens.h"
#include "support/Strict.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QWindow>

#include <array>
#include <functional>
#include <optional>
#include <random>

using zembra::InteractionMode;
using zembra::NavigationControlProfile;
using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

// The first one is the usual one; ZEMBRA_TEST_SCREENS names another by its place.
constexpr const char* screenLayouts[] = {
    R"({"name": "primary", "x": 0, "y": 0, "width": 1280, "height": 1024},
       {"name": "left", "x": -800, "y": 100, "width": 800, "height": 600},
       {"name": "small", "x": 100, "y": 1024, "width": 320, "height": 160})",
    R"({"name": "only", "x": 0, "y": 0, "width": 1920, "height": 1080})",
    R"({"name": "lower", "x": 0, "y": 0, "width": 1280, "height": 800},
       {"name": "upper", "x": 200, "y": -1024, "width": 1280, "height": 1024})",
    R"({"name": "tiny", "x": 0, "y": 0, "width": 240, "height": 200},
       {"name": "far", "x": 5000, "y": 3000, "width": 640, "height": 480})",
};

constexpr uint usualSequences = 200;
constexpr int eventCount = 200;

// Two windows with a view each, a controller without a view, and a strip that wanders between
// them. Each of them may be missing for a while.
class World {
public:
    explicit World(std::mt19937& generator) : random(generator) {
        for (int i = 0; i < 2; ++i)
            openWindow(i);
        controller = new ZembraNavigationController;
        makeStrip();
    }
    ~World() {
        setTranslated(false);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        delete strip;
        delete controller;
        for (const QPointer<QWidget>& window : windows)
            delete window;
    }

    // One event; what it was is the last entry of `trace`.
    void step() {
        struct Kind {
            const char* name;
            void (World::*act)();
            int weight;
        };
        static constexpr Kind kinds[] = {
            {"key", &World::pressKey, 30},
            {"click on the button", &World::clickButton, 14},
            {"press outside the popup", &World::pressOutside, 8},
            {"coach mark", &World::useCoach, 20},
            {"language", &World::changeLanguage, 5},
            {"profile", &World::changeProfile, 10},
            {"mode", &World::changeMode, 10},
            {"window geometry", &World::moveWindow, 14},
            {"window state", &World::changeWindowState, 5},
            {"strip geometry", &World::moveStrip, 10},
            {"other parent", &World::reparent, 6},
            {"visibility", &World::changeVisibility, 10},
            {"look", &World::changeLook, 4},
            {"binding", &World::bind, 8},
            {"destruction", &World::destroy, 4},
            {"creation", &World::create, 12},
        };
        static const int total = [] {
            int sum = 0;
            for (const Kind& kind : kinds)
                sum += kind.weight;
            return sum;
        }();
        int pick = below(total);
        for (const Kind& kind : kinds) {
            pick -= kind.weight;
            if (pick < 0) {
                trace << QString::fromLatin1(kind.name);
                (this->*kind.act)();
                return;
            }
        }
    }

    // The first rule that does not hold, once the event loop has nothing left to do.
    std::optional<QString> brokenRule() {
        if (!strip)
            return {};
        const NavigationChrome chrome(*strip);
        const auto broken = [](const char* rule) { return QString::fromLatin1(rule); };
        if (strip->graphicsView() != boundView.data())
            return broken("the view is the one bound last, while it lives");
        if (strip->navigationController() != boundController.data())
            return broken("the controller is the one bound last, while it lives");
        if (chrome.modeLabel()->isHidden() ==
            (boundController && boundController->interactionMode() == InteractionMode::BoxZoom))
            return broken("the label shows in box zoom only");
        if (dismissals != expectedDismissals)
            return broken("each dismissal by the user is told once, and nothing else is");

        const bool popup = chrome.popup()->isVisible();
        const bool coach = strip->isCoachMarkVisible();
        if (popup && coach)
            return broken("popup and coach mark exclude each other");
        if ((popup || coach) && !strip->isVisible())
            return broken("a hidden strip shows no windows");
        if (popup && chrome.popup()->geometry() != chrome.expectedPopupRect())
            return broken("the popup is below its button");
        if (coach && (chrome.coach()->geometry() != chrome.expectedCoachRect() ||
                      chrome.pointer()->x() != chrome.expectedPointerX()))
            return broken("the coach mark points at the button");
        if (coach &&
            (chrome.pointer()->text() == QStringLiteral("▲")) != chrome.expectedCoachIsBelow())
            return broken("the arrow shows to the side of the button");
        return brokenTextOrLayout(chrome);
    }

    QStringList trace;

private:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }
    bool coin() { return below(2) == 0; }
    QString translated(const QString& text) const {
        return isTranslated ? ContextTranslator::widgetText(text) : text;
    }

    std::optional<QString> brokenTextOrLayout(const NavigationChrome& chrome) const {
        const auto rows = zembra::ZembraNavigationDefinitions::controlRows(
            boundController ? boundController->controlProfile()
                            : NavigationControlProfile::Default);
        QStringList texts;
        for (const auto& row : rows)
            texts << translated(QStringLiteral("%1: %2")).arg(row.input, row.description);
        if (chrome.popupTexts() != texts)
            return QStringLiteral("the rows tell the profile in the current language");
        for (int i = 0; i < 7; ++i) {
            const bool needed = i < rows.size();
            if (chrome.coachInput(i)->isHidden() == needed ||
                chrome.coachResult(i)->isHidden() == needed ||
                (needed && (chrome.coachInput(i)->text() != rows[i].input ||
                            chrome.coachResult(i)->text() != rows[i].description)))
                return QStringLiteral("the coach mark tells the same rows");
        }
        if (chrome.helpButton()->accessibleName() != translated(QStringLiteral("Chart controls")))
            return QStringLiteral("the button is named in the current language");
        if (boundController && boundController->navigationActions().at(0)->text() !=
                                   zembra::ZembraNavigationDefinitions::zoomInActionText())
            return QStringLiteral("the actions are named in the current language");

        const QSize button = chrome.helpButton()->sizeHint();
        const QSize label =
            chrome.modeLabel()->isHidden() ? QSize(-1, -1) : chrome.modeLabel()->sizeHint();
        if (strip->sizeHint() !=
            QSize(button.width() + label.width(), qMax(button.height(), label.height())))
            return QStringLiteral("the size hint is that of the children");
        if (strip->isVisible() &&
            chrome.helpButton()->geometry().right() != strip->contentsRect().right())
            return QStringLiteral("the button is at the right edge");
        return {};
    }

    void openWindow(int i) {
        auto* window = new QWidget;
        windows[static_cast<std::size_t>(i)] = window;
        window->setGeometry(100 + 400 * i, 120, 350, 250);
        auto* view = new ZembraGraphicsView(window);
        views[static_cast<std::size_t>(i)] = view;
        view->setGeometry(0, 60, 350, 190);
        window->show();
    }

    void makeStrip() {
        QWidget* parent = windows[static_cast<std::size_t>(below(2))];
        strip = new ZembraNavigationWidget(parent);
        strip->resize(250, 40);
        dismissals = 0;
        expectedDismissals = 0;
        QObject::connect(strip, &ZembraNavigationWidget::coachDismissed, strip,
                         [this] { ++dismissals; });
        boundView = nullptr;
        boundController = nullptr;
        if (coin())
            bind();
        if (coin())
            strip->showCoachMark();
        strip->show();
    }

    // A widget of the chrome that can receive keys.
    QWidget* keyTarget(const NavigationChrome& chrome) {
        QList<QWidget*> targets;
        for (QWidget* widget : std::initializer_list<QWidget*>{
                 chrome.helpButton(), chrome.popupRow(0), chrome.popup(), chrome.coach(),
                 chrome.gotIt(), chrome.dontShowAgain(), QApplication::focusWidget()})
            if (widget && widget->isVisible())
                targets << widget;
        return targets.isEmpty() ? nullptr : targets[below(static_cast<int>(targets.size()))];
    }

    void pressKey() {
        if (!strip)
            return;
        static constexpr std::array<std::pair<Qt::Key, Qt::KeyboardModifier>, 10> keys{{
            {Qt::Key_Z, Qt::NoModifier},
            {Qt::Key_Z, Qt::ShiftModifier},
            {Qt::Key_Equal, Qt::ControlModifier},
            {Qt::Key_Minus, Qt::ControlModifier},
            {Qt::Key_Escape, Qt::NoModifier},
            {Qt::Key_Escape, Qt::NoModifier},
            {Qt::Key_Return, Qt::NoModifier},
            {Qt::Key_Enter, Qt::NoModifier},
            {Qt::Key_Space, Qt::NoModifier},
            {Qt::Key_Tab, Qt::NoModifier},
        }};
        const NavigationChrome chrome(*strip);
        QWidget* target = keyTarget(chrome);
        const auto [key, modifier] = keys[static_cast<std::size_t>(below(int(keys.size())))];
        if (!target)
            return;
        // Keys arrive where the focus is; what lies under a popup cannot have it.
        target->activateWindow();
        target->setFocus();
        QCoreApplication::processEvents();
        if (QApplication::focusWidget() != target)
            return;
        trace
            << QStringLiteral("  %1 on %2").arg(QKeySequence(key).toString(), target->objectName());
        const bool inCoach = target->window() == chrome.coach();
        const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        if (inCoach && (key == Qt::Key_Escape || (target == chrome.gotIt() && presses)))
            ++expectedDismissals;
        QTest::keyClick(target, key, modifier);
    }

    void clickButton() {
        if (!strip)
            return;
        const NavigationChrome chrome(*strip);
        QWidget* window = strip->window();
        const QPoint place =
            chrome.helpButton()->mapTo(window, chrome.helpButton()->rect().center());
        if (!chrome.helpButton()->isVisible())
            return;
        // The window system may have another size for the window until the loop runs.
        const QRect area(QPoint(), window->size().boundedTo(window->windowHandle()->size()));
        if (!area.contains(place) || coin())
            chrome.helpButton()->click();
        else if (!QApplication::activePopupWidget())
            QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
    }

    void pressOutside() {
        if (!strip || !NavigationChrome(*strip).popup()->isVisible())
            return;
        const NavigationChrome chrome(*strip);
        QWindow* window = chrome.popup()->windowHandle();
        QPoint place = window->mapFromGlobal(chrome.buttonRect().center());
        // Qt Test takes no place to the right of a window or below it.
        if (coin() || place.x() >= window->width() || place.y() >= window->height())
            place = QPoint(-5, -5);
        QCursor::setPos(window->mapToGlobal(place));
        QTest::mousePress(window, Qt::LeftButton, {}, place);
        QTest::mouseRelease(strip->window()->windowHandle(), Qt::LeftButton, {}, {1, 1});
    }

    void useCoach() {
        if (!strip)
            return;
        const NavigationChrome chrome(*strip);
        switch (below(5)) {
        case 0:
            strip->hideCoachMark();
            break;
        case 1:
            if (strip->isCoachMarkVisible())
                ++expectedDismissals;
            if (strip->isCoachMarkVisible())
                chrome.gotIt()->click();
            break;
        case 2:
            chrome.dontShowAgain()->toggle();
            break;
        default:
            strip->showCoachMark();
        }
    }

    void setTranslated(bool on) {
        if (on == isTranslated)
            return;
        isTranslated = on;
        if (on)
            QCoreApplication::installTranslator(&translator);
        else
            QCoreApplication::removeTranslator(&translator);
        QCoreApplication::sendPostedEvents();
        // Nobody but its strip tells a controller without a parent.
        if (controller && boundController != controller)
            controller->retranslate();
    }
    void changeLanguage() { setTranslated(!isTranslated); }

    ZembraNavigationController* anyController() {
        QList<ZembraNavigationController*> controllers;
        if (controller)
            controllers << controller;
        for (const auto& view : views)
            if (view)
                controllers << view->navigationController();
        return controllers.isEmpty() ? nullptr
                                     : controllers[below(static_cast<int>(controllers.size()))];
    }
    void changeProfile() {
        if (auto* target = anyController())
            target->setControlProfile(NavigationControlProfile(below(2)));
    }
    void changeMode() {
        auto* target = anyController();
        if (target && coin())
            target->navigationActions().at(3)->trigger();
        else if (target)
            target->setInteractionMode(InteractionMode(below(2)));
    }

    QWidget* anyWindow() {
        if (strip && coin())
            return strip->window();
        return windows[static_cast<std::size_t>(below(2))];
    }
    void moveWindow() {
        QWidget* window = anyWindow();
        if (!window)
            return;
        for (int i = below(4); i >= 0; --i)
            window->move(below(2200) - 900, below(1300) - 50);
        if (coin())
            window->resize(120 + below(400), 80 + below(300));
    }
    void changeWindowState() {
        QWidget* window = anyWindow();
        if (window && window->isVisible())
            window->setWindowState(coin() ? Qt::WindowNoState : Qt::WindowMaximized);
    }
    void moveStrip() {
        if (!strip || strip->isWindow())
            return;
        strip->setGeometry(below(200), below(100), 40 + below(300), 20 + below(60));
    }
    void reparent() {
        if (!strip)
            return;
        strip->setParent(windows[static_cast<std::size_t>(below(2))]);
        if (coin() && !strip->isWindow())
            strip->setParent(nullptr);
        if (below(4))
            strip->show();
    }
    void changeVisibility() {
        QWidget* target = coin() ? static_cast<QWidget*>(strip) : anyWindow();
        if (target)
            target->setVisible(!target->isVisible() || below(3) == 0);
    }
    void changeLook() {
        QApplication::setLayoutDirection(coin() ? Qt::LeftToRight : Qt::RightToLeft);
    }

    void bind() {
        if (!strip)
            return;
        const QPointer<ZembraGraphicsView>& view = views[static_cast<std::size_t>(below(2))];
        if (coin()) {
            strip->setGraphicsView(view);
            boundView = view;
            boundController = view ? view->navigationController() : nullptr;
        } else {
            ZembraNavigationController* other = anyController();
            strip->setNavigationController(other);
            boundView = nullptr;
            boundController = other;
            if (other == controller && controller)
                controller->retranslate();
        }
    }

    void destroy() {
        const auto i = static_cast<std::size_t>(below(2));
        switch (below(4)) {
        case 0:
            trace << QStringLiteral("  of a view");
            delete views[i];
            break;
        case 1:
            trace << QStringLiteral("  of the controller");
            delete controller;
            break;
        case 2:
            trace << QStringLiteral("  of the strip");
            delete strip;
            break;
        default:
            trace << QStringLiteral("  of a window");
            delete windows[i];
        }
    }

    void create() {
        for (int i = 0; i < 2; ++i) {
            if (!windows[static_cast<std::size_t>(i)]) {
                openWindow(i);
            } else if (!views[static_cast<std::size_t>(i)]) {
                auto* view = new ZembraGraphicsView(windows[static_cast<std::size_t>(i)]);
                views[static_cast<std::size_t>(i)] = view;
                view->show();
            }
        }
        if (!controller)
            controller = new ZembraNavigationController;
        if (!strip)
            makeStrip();
    }

    std::mt19937& random;
    ContextTranslator translator;
    bool isTranslated = false;
    std::array<QPointer<QWidget>, 2> windows;
    std::array<QPointer<ZembraGraphicsView>, 2> views;
    QPointer<ZembraNavigationController> controller;
    QPointer<ZembraNavigationWidget> strip;
    QPointer<ZembraGraphicsView> boundView;
    QPointer<ZembraNavigationController> boundController;
    int dismissals = 0;
    int expectedDismissals = 0;
};

} // namespace

class ZembraNavigationRandomEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void rulesHoldAfterAnySequenceOfEvents() {
        bool given = false;
        const uint asked = qEnvironmentVariable("ZEMBRA_TEST_SEED").toUInt(&given);
        const uint seed = given ? asked : QRandomGenerator::global()->generate();
        bool isCount = false;
        const uint count = qEnvironmentVariable("ZEMBRA_TEST_SEQUENCES").toUInt(&isCount);
        const uint sequenceCount = isCount ? count : usualSequences;
        qInfo("ZEMBRA_TEST_SEED=%u repeats this run of %u sequences", seed, sequenceCount);
        for (uint sequence = 0; sequence < sequenceCount; ++sequence) {
            std::mt19937 random(seed + sequence);
            World world(random);
            for (int event = 0; event < eventCount; ++event) {
                world.step();
                // Now and then several events meet in one pass of the loop.
                if (random() % 4 == 0)
                    continue;
                QCoreApplication::processEvents();
                QCoreApplication::processEvents();
                if (const std::optional<QString> rule = world.brokenRule()) {
                    const QStringList last = world.trace.mid(qMax(0, world.trace.size() - 12));
                    QFAIL(qPrintable(QStringLiteral("Not so: %1; seed %2, event %3, after:\n%4")
                                         .arg(*rule)
                                         .arg(seed + sequence)
                                         .arg(event)
                                         .arg(last.join(QLatin1Char('\n')))));
                }
            }
        }
    }
};

int main(int argc, char** argv) {
    const uint layout = qEnvironmentVariable("ZEMBRA_TEST_SCREENS").toUInt();
    return runOnScreens<ZembraNavigationRandomEventsTest>(
        screenLayouts[layout % std::size(screenLayouts)], argc, argv);
}
#include "ZembraNavigationRandomEvents_test.moc"
