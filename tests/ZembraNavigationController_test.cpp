// SPDX-License-Identifier: MIT
#include <ZembraNavigationController.h>

#include "support/MetaObjectText.h"
#include "support/Strict.h"
#include "support/UpperCaseTranslator.h"

#include <QAction>
#include <QSignalSpy>
#include <QToolButton>

namespace definitions = zembra::ZembraNavigationDefinitions;
using zembra::InteractionMode;
using zembra::NavigationControlProfile;
using zembra::ZembraNavigationController;

namespace {

QStringList texts(const ZembraNavigationController& controller) {
    QStringList result;
    for (const QAction* action : controller.navigationActions())
        result << action->text();
    return result;
}

const QStringList sourceTexts{QStringLiteral("Zoom In"), QStringLiteral("Zoom Out"),
                              QStringLiteral("Reset View to Data"),
                              QStringLiteral("Box Zoom Mode")};
const QStringList translatedTexts{QStringLiteral("[ZOOM IN]"), QStringLiteral("[ZOOM OUT]"),
                                  QStringLiteral("[RESET VIEW TO DATA]"),
                                  QStringLiteral("[BOX ZOOM MODE]")};

// Notes whether an event reached the object itself, after all filters.
class Receiver : public QObject {
public:
    bool event(QEvent* event) override {
        languageChanges += event->type() == QEvent::LanguageChange;
        return QObject::event(event);
    }
    int languageChanges = 0;
};

void sendLanguageChange(QObject& object) {
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&object, &event);
}

} // namespace

class ZembraNavigationControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void metaObjectHoldsExactlyTheFiveSignals() {
        const QMetaObject& meta = ZembraNavigationController::staticMetaObject;
        QCOMPARE(meta.className(), "zembra::ZembraNavigationController");
        QCOMPARE(metaObjectText(meta),
                 (QStringList{
                     QStringLiteral("signal zoomInRequested()"),
                     QStringLiteral("signal zoomOutRequested()"),
                     QStringLiteral("signal resetViewToDataRequested()"),
                     QStringLiteral("signal interactionModeChanged(zembra::InteractionMode) mode"),
                     QStringLiteral(
                         "signal controlProfileChanged(zembra::NavigationControlProfile) profile"),
                 }));
        QCOMPARE(meta.method(meta.methodOffset() + 3).parameterMetaType(0),
                 QMetaType::fromType<InteractionMode>());
        QCOMPARE(meta.method(meta.methodOffset() + 4).parameterMetaType(0),
                 QMetaType::fromType<NavigationControlProfile>());
    }

    void freshControllerPansAndDescribesAPlainChart() {
        const ZembraNavigationController controller;
        QCOMPARE(controller.parent(), static_cast<QObject*>(nullptr));
        QCOMPARE(controller.interactionMode(), InteractionMode::Pan);
        QCOMPARE(controller.controlProfile(), NavigationControlProfile::Default);
        QCOMPARE(texts(controller), sourceTexts);
    }

    void actionsAreSetUpAsDocumented_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QList<QKeySequence>>("shortcuts");
        QTest::addColumn<bool>("checkable");
        QTest::newRow("zoom in") << 0 << definitions::zoomInShortcuts() << false;
        QTest::newRow("zoom out") << 1 << definitions::zoomOutShortcuts() << false;
        QTest::newRow("reset") << 2 << QList<QKeySequence>() << false;
        QTest::newRow("box zoom") << 3 << QList<QKeySequence>{QKeySequence(Qt::Key_Z)} << true;
    }
    void actionsAreSetUpAsDocumented() {
        QFETCH(int, index);
        QFETCH(QList<QKeySequence>, shortcuts);
        QFETCH(bool, checkable);
        const ZembraNavigationController controller;
        QCOMPARE(controller.navigationActions().size(), 4);
        const QAction* action = controller.navigationActions().at(index);
        QCOMPARE(action->parent(), &controller);
        QCOMPARE(action->shortcuts(), shortcuts);
        QCOMPARE(action->shortcutContext(), Qt::WidgetShortcut);
        QCOMPARE(action->isCheckable(), checkable);
        QVERIFY(!action->isChecked());
        QVERIFY(action->isEnabled());
        QVERIFY(action->isVisible());
        QVERIFY(action->objectName().isEmpty());
        QVERIFY(action->icon().isNull());
        QVERIFY(action->statusTip().isEmpty());
        // Without a tip of its own an action tells its text.
        QCOMPARE(action->toolTip(), action->text());
    }

    void actionsAskAndChangeNothing_data() {
        QTest::addColumn<int>("index");
        QTest::newRow("zoom in") << 0;
        QTest::newRow("zoom out") << 1;
        QTest::newRow("reset") << 2;
    }
    void actionsAskAndChangeNothing() {
        QFETCH(int, index);
        ZembraNavigationController controller;
        QStringList log;
        connect(&controller, &ZembraNavigationController::zoomInRequested, this,
                [&] { log << QStringLiteral("0"); });
        connect(&controller, &ZembraNavigationController::zoomOutRequested, this,
                [&] { log << QStringLiteral("1"); });
        connect(&controller, &ZembraNavigationController::resetViewToDataRequested, this,
                [&] { log << QStringLiteral("2"); });
        connect(&controller, &ZembraNavigationController::interactionModeChanged, this,
                [&] { log << QStringLiteral("mode"); });
        controller.navigationActions().at(index)->trigger();
        QCOMPARE(log, QStringList{QString::number(index)});
        QCOMPARE(controller.interactionMode(), InteractionMode::Pan);
    }

    void settingTheModeChecksTheActionWithoutItsToggled() {
        ZembraNavigationController controller;
        QAction* action = controller.navigationActions().at(3);
        QSignalSpy modes(&controller, &ZembraNavigationController::interactionModeChanged);
        QSignalSpy toggles(action, &QAction::toggled);

        controller.setInteractionMode(InteractionMode::Pan);
        QCOMPARE(modes.count(), 0);

        controller.setInteractionMode(InteractionMode::BoxZoom);
        QCOMPARE(modes.count(), 1);
        QCOMPARE(modes.at(0).at(0).value<InteractionMode>(), InteractionMode::BoxZoom);
        QCOMPARE(controller.interactionMode(), InteractionMode::BoxZoom);
        QVERIFY(action->isChecked());

        controller.setInteractionMode(InteractionMode::BoxZoom);
        QCOMPARE(modes.count(), 1);
        controller.setInteractionMode(InteractionMode::Pan);
        QCOMPARE(modes.count(), 2);
        QVERIFY(!action->isChecked());
        QCOMPARE(toggles.count(), 0);
        QVERIFY(!action->signalsBlocked());
    }

    void settingTheSameModeBringsTheActionBackInStep() {
        ZembraNavigationController controller;
        QAction* action = controller.navigationActions().at(3);
        {
            const QSignalBlocker blocker(action);
            action->setChecked(true);
        }
        QCOMPARE(controller.interactionMode(), InteractionMode::Pan);
        QSignalSpy modes(&controller, &ZembraNavigationController::interactionModeChanged);
        controller.setInteractionMode(InteractionMode::Pan);
        QVERIFY(!action->isChecked());
        QCOMPARE(modes.count(), 0);
    }

    void settingTheModeKeepsSignalsBlockedThatTheHostBlocked() {
        ZembraNavigationController controller;
        QAction* action = controller.navigationActions().at(3);
        const QSignalBlocker blocker(action);
        controller.setInteractionMode(InteractionMode::BoxZoom);
        QVERIFY(action->signalsBlocked());
        QVERIFY(action->isChecked());
    }

    void unknownModesAreKeptAndLeaveTheActionUnchecked() {
        ZembraNavigationController controller;
        controller.setInteractionMode(InteractionMode::BoxZoom);
        QSignalSpy modes(&controller, &ZembraNavigationController::interactionModeChanged);
        controller.setInteractionMode(static_cast<InteractionMode>(5));
        QCOMPARE(modes.count(), 1);
        QCOMPARE(static_cast<int>(controller.interactionMode()), 5);
        QVERIFY(!controller.navigationActions().at(3)->isChecked());
    }

    void togglingTheActionTwiceEntersAndLeavesBoxZoom() {
        ZembraNavigationController controller;
        QSignalSpy modes(&controller, &ZembraNavigationController::interactionModeChanged);
        controller.navigationActions().at(3)->toggle();
        controller.navigationActions().at(3)->trigger();
        QCOMPARE(modes.count(), 2);
        QCOMPARE(modes.at(0).at(0).value<InteractionMode>(), InteractionMode::BoxZoom);
        QCOMPARE(modes.at(1).at(0).value<InteractionMode>(), InteractionMode::Pan);
    }

    void profileIsAnnouncedOnceAndChangesNothingElse() {
        ZembraNavigationController controller;
        QSignalSpy profiles(&controller, &ZembraNavigationController::controlProfileChanged);
        QSignalSpy modes(&controller, &ZembraNavigationController::interactionModeChanged);
        controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        QCOMPARE(profiles.count(), 1);
        QCOMPARE(profiles.at(0).at(0).value<NavigationControlProfile>(),
                 NavigationControlProfile::ControlPointEditing);
        QCOMPARE(controller.controlProfile(), NavigationControlProfile::ControlPointEditing);
        QCOMPARE(modes.count(), 0);
    }

    void textsFollowTheLanguageChangesOfTheParent() {
        Receiver parent;
        Receiver other;
        auto* controller = new ZembraNavigationController(&parent);
        other.installEventFilter(controller);
        UpperCaseTranslator translator("ZembraNavigationDefinitions");
        QCoreApplication::installTranslator(&translator);
        const QStringList before = texts(*controller);
        sendLanguageChange(other);
        const QStringList afterAnother = texts(*controller);
        sendLanguageChange(parent);
        const QStringList after = texts(*controller);
        QCoreApplication::removeTranslator(&translator);

        QCOMPARE(before, sourceTexts);
        QCOMPARE(afterAnother, sourceTexts);
        QCOMPARE(after, translatedTexts);
        // Both events went on to their objects.
        QCOMPARE(other.languageChanges, 1);
        QCOMPARE(parent.languageChanges, 1);
    }

    void controllerWithoutParentKeepsItsTextsUntilAskedToRetranslate() {
        ZembraNavigationController controller;
        UpperCaseTranslator translator("ZembraNavigationDefinitions");
        QCoreApplication::installTranslator(&translator);
        QCoreApplication::processEvents();
        const QStringList before = texts(controller);
        controller.retranslate();
        const QStringList after = texts(controller);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(before, sourceTexts);
        QCOMPARE(after, translatedTexts);
    }

    void controllerAndActionsGoWithTheParent() {
        auto parent = std::make_unique<QObject>();
        QPointer<ZembraNavigationController> controller =
            new ZembraNavigationController(parent.get());
        QPointer<QAction> action = controller->navigationActions().at(0);
        parent.reset();
        QVERIFY(!controller);
        QVERIFY(!action);
    }

    void slotMayDeleteTheController_data() {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 4; ++i)
            QTest::addRow("action %d", i) << i;
    }
    void slotMayDeleteTheController() {
        QFETCH(int, index);
        QPointer<ZembraNavigationController> controller = new ZembraNavigationController;
        const auto destroy = [&] { delete controller.data(); };
        connect(controller, &ZembraNavigationController::zoomInRequested, this, destroy);
        connect(controller, &ZembraNavigationController::zoomOutRequested, this, destroy);
        connect(controller, &ZembraNavigationController::resetViewToDataRequested, this, destroy);
        connect(controller, &ZembraNavigationController::interactionModeChanged, this, destroy);
        controller->navigationActions().at(index)->trigger();
        QVERIFY(!controller);
    }

    void toolButtonThatShowsTheActionMayDeleteTheController() {
        QPointer<ZembraNavigationController> controller = new ZembraNavigationController;
        QToolButton button;
        button.setDefaultAction(controller->navigationActions().at(3));
        connect(&button, &QToolButton::toggled, this, [&] { delete controller.data(); });
        controller->setInteractionMode(InteractionMode::BoxZoom);
        QVERIFY(!controller);
    }
};

QTEST_MAIN(ZembraNavigationControllerTest)
#include "ZembraNavigationController_test.moc"
