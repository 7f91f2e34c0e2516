// SPDX-License-Identifier: MIT
#include "ChartWindow.h"

#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using zembra::ZembraNavigationWidget;

namespace {

// One start of the program, with settings that are the same from start to start.
struct Start {
    explicit Start(const QTemporaryDir& folder)
        : settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat),
          window(settings),
          strip(window.findChild<ZembraNavigationWidget*>()) {
        window.show();
        // A pass of the event loop, in which a hint that is due appears.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    void dismiss(bool dontShowAgain) {
        strip->findChild<QCheckBox*>()->setChecked(dontShowAgain);
        strip->findChild<QPushButton*>()->click();
    }

    QSettings settings;
    coachmark::ChartWindow window;
    ZembraNavigationWidget* strip;
};

} // namespace

class ChartWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hintIsShownUntilTheUserHasSeenEnough() {
        const QTemporaryDir folder;
        {
            Start first(folder);
            QVERIFY(first.strip->isCoachMarkVisible());
            first.dismiss(false);
            QVERIFY(!first.strip->isCoachMarkVisible());
        }
        {
            Start second(folder);
            QVERIFY(second.strip->isCoachMarkVisible());
            second.dismiss(true);
        }
        const Start third(folder);
        QVERIFY(!third.strip->isCoachMarkVisible());
    }

    void hintThatIsNotAnsweredComesAgain() {
        const QTemporaryDir folder;
        {
            const Start first(folder);
            QVERIFY(first.strip->isCoachMarkVisible());
        }
        const Start second(folder);
        QVERIFY(second.strip->isCoachMarkVisible());
    }

    void helpMenuOffersTheHintAgain() {
        const QTemporaryDir folder;
        Start(folder).dismiss(true);
        Start later(folder);
        QVERIFY(!later.strip->isCoachMarkVisible());
        later.window.menuBar()->actions().constFirst()->menu()->actions().constFirst()->trigger();
        QVERIFY(later.strip->isCoachMarkVisible());
        // Asking for it again is not an answer.
        later.strip->hideCoachMark();
        QVERIFY(!Start(folder).strip->isCoachMarkVisible());
    }
};

QTEST_MAIN(ChartWindowTest)
#include "ChartWindow_test.moc"
