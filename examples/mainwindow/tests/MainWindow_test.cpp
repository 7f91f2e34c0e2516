// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        // But for what the platform without a screen says of each window with a least size.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not )")));
        window = std::make_unique<MainWindow>();
        window->resize(600, 400);
        window->show();
        window->grab();
    }
    void cleanup() { window.reset(); }

    void menuToolBarAndContextMenuHoldTheActionsOfTheView() {
        const QList<QAction*> actions = window->view().navigationActions();
        QCOMPARE(window->menuBar()->actions().at(0)->menu()->actions(), actions);
        QCOMPARE(window->findChild<QToolBar*>()->actions(), actions);

        QStringList texts;
        QTimer::singleShot(0, this, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
            for (const QAction* action : menu->actions())
                texts << action->text();
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(50, 50),
                                window->view().viewport()->mapToGlobal(QPoint(50, 50)));
        QCoreApplication::sendEvent(window->view().viewport(), &event);
        QCOMPARE(texts.size(), actions.size());
        QCOMPARE(texts.last(), actions.last()->text());
    }

    void statusBarTellsTheMode() {
        const QString pan = window->modeText();
        window->view().navigationActions().at(3)->trigger();
        const QString box = window->modeText();
        QVERIFY(box != pan);
        window->view().setInteractionMode(zembra::InteractionMode::Pan);
        QCOMPARE(window->modeText(), pan);
    }

    void toolButtonOfBoxZoomFollowsTheMode() {
        auto* toolBar = window->findChild<QToolBar*>();
        auto* button = qobject_cast<QToolButton*>(
            toolBar->widgetForAction(window->view().navigationActions().at(3)));
        QVERIFY(button);
        window->view().setInteractionMode(zembra::InteractionMode::BoxZoom);
        QVERIFY(button->isChecked());
        button->click();
        QCOMPARE(window->view().interactionMode(), zembra::InteractionMode::Pan);
    }

    void statusBarTellsTheRangesAsTheyChange() {
        const QString whole = window->rangeText();
        QVERIFY(whole.startsWith(QStringLiteral("Time -")) ||
                whole.startsWith(QStringLiteral("Time 0")));
        window->view().zoomIn();
        const QString part = window->rangeText();
        QVERIFY(part != whole);
        window->view().resetZoom();
        QCOMPARE(window->rangeText(), whole);
    }

private:
    std::unique_ptr<MainWindow> window;
};

QTEST_MAIN(MainWindowTest)
#include "MainWindow_test.moc"
