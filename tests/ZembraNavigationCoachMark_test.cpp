// SPDX-License-Identifier: MIT
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/NavigationChrome.h"
#include "support/OffscreenScreens.h"
#include "support/Strict.h"

#include <QGridLayout>
#include <QSignalSpy>
#include <QVBoxLayout>

using zembra::NavigationControlProfile;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

const QString nameAbove = QStringLiteral("Points to the Chart controls button above");
const QString nameBelow = QStringLiteral("Points to the Chart controls button below");

// A window that is little more than its strip, so that it fits anywhere on the screen.
struct HostWindow {
    HostWindow() : chrome(strip) {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&strip);
        layout->addStretch();
        window.setGeometry(500, 200, 200, 60);
        strip.setNavigationController(&controller);
    }
    [[nodiscard]] bool show() {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }
    // Shows the mark and lets it settle.
    void showCoach() {
        strip.showCoachMark();
        QCoreApplication::processEvents();
    }

    QWidget window;
    ZembraNavigationController controller;
    ZembraNavigationWidget strip{&window};
    NavigationChrome chrome;
};

QRect screenArea() {
    return QGuiApplication::primaryScreen()->availableGeometry();
}

} // namespace

class ZembraNavigationCoachMarkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void cleanup() { QApplication::setFont(usualFont); }

    void markIsAFramelessToolWindowThatIsHidden() {
        const ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        const QFrame* coach = chrome.coach();
        QCOMPARE(coach->parent(), &strip);
        QCOMPARE(coach->windowType(), Qt::Tool);
        QVERIFY(coach->windowFlags().testFlag(Qt::FramelessWindowHint));
        QCOMPARE(coach->windowModality(), Qt::NonModal);
        QCOMPARE(coach->windowTitle(), QStringLiteral("Chart controls"));
        QCOMPARE(coach->frameShape(), QFrame::NoFrame);
        QVERIFY(coach->isHidden());
        QVERIFY(!strip.isCoachMarkVisible());
    }

    void contentsAreStackedInOrder() {
        const ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        const auto* layout = qobject_cast<QVBoxLayout*>(chrome.coach()->layout());
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins());
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->widget(), chrome.pointerRow());
        QCOMPARE(chrome.pointer()->parent(), chrome.pointerRow());
        QCOMPARE(chrome.pointer()->text(), QStringLiteral("▲"));
        QCOMPARE(chrome.pointer()->accessibleName(), nameAbove);
        QCOMPARE(chrome.pointerRow()->sizeHint(), chrome.pointer()->sizeHint());

        const auto* content = qobject_cast<QVBoxLayout*>(layout->itemAt(1)->layout());
        QVERIFY(content);
        QWidget usual;
        const QVBoxLayout usualLayout(&usual);
        QCOMPARE(content->contentsMargins(), usualLayout.contentsMargins());
        QStringList names;
        for (int i = 0; i < content->count(); ++i)
            names << content->itemAt(i)->widget()->objectName();
        QCOMPARE(names, (QStringList{QStringLiteral("zembraNavigationCoachTitle"),
                                     QStringLiteral("zembraNavigationCoachIntroduction"),
                                     QStringLiteral("zembraNavigationCoachControls"),
                                     QStringLiteral("zembraNavigationCoachDontShowAgain"),
                                     QStringLiteral("zembraNavigationCoachGotItButton")}));
        QCOMPARE(chrome.part<QLabel>(QStringLiteral("CoachTitle"))->text(),
                 QStringLiteral("Chart controls"));
        const auto* introduction = chrome.part<QLabel>(QStringLiteral("CoachIntroduction"));
        QCOMPARE(introduction->text(),
                 QStringLiteral("Charts are interactive. Use these controls to navigate:"));
        QVERIFY(introduction->wordWrap());
        QCOMPARE(chrome.dontShowAgain()->text(), QStringLiteral("Don't show again"));
        QVERIFY(chrome.dontShowAgain()->isChecked());
        QCOMPARE(chrome.gotIt()->text(), QStringLiteral("Got it"));
        QVERIFY(chrome.gotIt()->isDefault());
    }

    void controlsAreAGridOfSevenRows() {
        const ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        const auto* controls = chrome.part<QWidget>(QStringLiteral("CoachControls"));
        const auto* grid = qobject_cast<QGridLayout*>(controls->layout());
        QVERIFY(grid);
        QCOMPARE(grid->columnStretch(0), 0);
        QCOMPARE(grid->columnStretch(1), 1);
        QCOMPARE(grid->count(), 14);
        for (int i = 0; i < 7; ++i) {
            QCOMPARE(grid->itemAtPosition(i, 0)->widget(), chrome.coachInput(i));
            QCOMPARE(grid->itemAtPosition(i, 1)->widget(), chrome.coachResult(i));
            QVERIFY(!chrome.coachInput(i)->wordWrap());
            QVERIFY(chrome.coachResult(i)->wordWrap());
            QCOMPARE(chrome.coachInput(i)->isHidden(), i == 6);
            QCOMPARE(chrome.coachResult(i)->isHidden(), i == 6);
        }
        QCOMPARE(chrome.coachInput(1)->text(), QStringLiteral("Left-button drag"));
        QCOMPARE(chrome.coachResult(1)->text(), QStringLiteral("Pan"));
    }

    void rowsFollowTheProfile() {
        HostWindow host;
        QVERIFY(host.show());
        host.showCoach();
        QCOMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        const int height = host.chrome.coach()->height();
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        QVERIFY(host.chrome.coachResult(6)->isVisible());
        QCOMPARE(host.chrome.coachInput(2)->text(), QStringLiteral("Drag control-point handles"));
        QVERIFY(host.chrome.coach()->height() > height);
        const QRect atOnce = host.chrome.coach()->geometry();
        QCoreApplication::processEvents();
        QCOMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        // Nothing was left for the next pass to correct.
        QCOMPARE(host.chrome.coach()->geometry(), atOnce);
        host.controller.setControlProfile(NavigationControlProfile::Default);
        QCOMPARE(host.chrome.coach()->height(), height);
    }

    void everyTextOfTheMarkHasTheRoomItAsksFor() {
        HostWindow host;
        QVERIFY(host.show());
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        host.showCoach();
        const auto labels = host.chrome.coach()->findChildren<QLabel*>();
        QVERIFY(labels.size() > 14);
        for (const QLabel* label : labels) {
            QVERIFY(label->height() >= label->heightForWidth(label->width()));
            if (!label->wordWrap())
                QVERIFY(label->width() >= label->sizeHint().width());
        }
    }

    void markThatIsAskedForEarlyWaitsForTheStrip() {
        HostWindow host;
        host.strip.showCoachMark();
        QCoreApplication::processEvents();
        QVERIFY(!host.strip.isCoachMarkVisible());
        host.window.show();
        QVERIFY(!host.strip.isCoachMarkVisible());
        QCoreApplication::processEvents();
        QVERIFY(host.strip.isCoachMarkVisible());
        // Asked for once, shown once.
        host.strip.hideCoachMark();
        host.window.hide();
        host.window.show();
        QCoreApplication::processEvents();
        QVERIFY(!host.strip.isCoachMarkVisible());
    }

    void waitingMarkIsCalledOff_data() {
        QTest::addColumn<bool>("afterShowing");
        QTest::newRow("before the strip is shown") << false;
        QTest::newRow("in the pass that shows the strip") << true;
    }
    void waitingMarkIsCalledOff() {
        QFETCH(bool, afterShowing);
        HostWindow host;
        host.strip.showCoachMark();
        if (!afterShowing)
            host.strip.hideCoachMark();
        host.window.show();
        if (afterShowing)
            host.strip.hideCoachMark();
        QVERIFY(QTest::qWaitForWindowExposed(&host.window));
        QCoreApplication::processEvents();
        QVERIFY(!host.strip.isCoachMarkVisible());
    }

    void openingTheHelpCallsOffAWaitingMark() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->hide();
        host.strip.showCoachMark();
        host.chrome.helpButton()->show();
        host.chrome.helpButton()->click();
        host.chrome.popup()->hide();
        host.window.hide();
        host.window.show();
        QCoreApplication::processEvents();
        QVERIFY(!host.strip.isCoachMarkVisible());
    }

    void markWaitsForItsButtonToo() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->hide();
        host.strip.showCoachMark();
        QCoreApplication::processEvents();
        QVERIFY(!host.strip.isCoachMarkVisible());
        host.chrome.helpButton()->show();
        host.strip.hide();
        host.strip.show();
        QTRY_VERIFY(host.strip.isCoachMarkVisible());
    }

    void hidingTheStripKeepsAWaitingMark() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->hide();
        host.strip.showCoachMark();
        host.window.hide();
        host.chrome.helpButton()->show();
        host.window.show();
        QTRY_VERIFY(host.strip.isCoachMarkVisible());
    }

    void shownMarkHasTheFocusOnItsButton() {
        HostWindow host;
        QVERIFY(host.show());
        host.strip.showCoachMark();
        QCOMPARE(host.chrome.coach()->focusWidget(), host.chrome.gotIt());
        QTRY_VERIFY(host.chrome.gotIt()->hasFocus());
    }

    void dismissalTellsTheCheckBoxOnce_data() {
        QTest::addColumn<QString>("by");
        QTest::addColumn<bool>("checked");
        for (bool checked : {true, false}) {
            for (const char* by : {"Got it", "Return", "Space", "Escape in Coach",
                                   "Escape in CoachGotItButton", "Escape in CoachDontShowAgain",
                                   "Escape in CoachResult0", "Escape in CoachPointer"})
                QTest::addRow("%s, %s", by, checked ? "checked" : "unchecked")
                    << QString::fromLatin1(by) << checked;
        }
    }
    void dismissalTellsTheCheckBoxOnce() {
        QFETCH(QString, by);
        QFETCH(bool, checked);
        HostWindow host;
        QVERIFY(host.show());
        host.strip.showCoachMark();
        QTRY_VERIFY(host.chrome.gotIt()->hasFocus());
        if (!checked)
            host.chrome.dontShowAgain()->click();
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        bool hiddenWhenTold = false;
        connect(&host.strip, &ZembraNavigationWidget::coachDismissed, this,
                [&] { hiddenWhenTold = !host.strip.isCoachMarkVisible(); });
        if (by == QStringLiteral("Got it")) {
            QTest::mouseClick(host.chrome.gotIt(), Qt::LeftButton);
        } else if (by == QStringLiteral("Return") || by == QStringLiteral("Space")) {
            QTest::keyClick(host.chrome.gotIt(),
                            by == QStringLiteral("Space") ? Qt::Key_Space : Qt::Key_Return);
        } else {
            auto* target = host.chrome.part<QWidget>(by.mid(10));
            QVERIFY(target);
            QTest::keyClick(target, Qt::Key_Escape);
        }
        QVERIFY(!host.strip.isCoachMarkVisible());
        QVERIFY(hiddenWhenTold);
        QCOMPARE(dismissed.count(), 1);
        QCOMPARE(dismissed.at(0).at(0).toBool(), checked);
        QCOMPARE(host.window.focusWidget(), host.chrome.helpButton());
        QCoreApplication::processEvents();
        QCOMPARE(dismissed.count(), 1);

        // The answer stands when the mark is shown again.
        host.strip.showCoachMark();
        QCOMPARE(host.chrome.dontShowAgain()->isChecked(), checked);
    }

    void otherKeysDoNotDismiss() {
        HostWindow host;
        QVERIFY(host.show());
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        host.strip.showCoachMark();
        QTest::keyClick(host.chrome.coach(), Qt::Key_Z);
        QTest::keyClick(host.chrome.dontShowAgain(), Qt::Key_Tab);
        QVERIFY(host.strip.isCoachMarkVisible());
        // Escape elsewhere in the window is not meant for the mark.
        QTest::keyClick(host.chrome.helpButton(), Qt::Key_Escape);
        QVERIFY(host.strip.isCoachMarkVisible());
        QCOMPARE(dismissed.count(), 0);
    }

    void hidingTheMarkTellsNothing() {
        HostWindow host;
        QVERIFY(host.show());
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        host.strip.showCoachMark();
        host.strip.hideCoachMark();
        QVERIFY(!host.strip.isCoachMarkVisible());
        QCoreApplication::processEvents();
        QVERIFY(!host.strip.isCoachMarkVisible());
        QCOMPARE(dismissed.count(), 0);
    }

    void markStandsOnTheSideThatHasRoom_data() {
        QTest::addColumn<int>("fromBottom");
        QTest::addColumn<bool>("below");
        // The room below the button, compared with the height of the mark.
        QTest::newRow("plenty below") << 100 << true;
        QTest::newRow("exactly enough below") << 0 << true;
        QTest::newRow("one pixel too little") << -1 << false;
        QTest::newRow("much too little") << -200 << false;
    }
    void markStandsOnTheSideThatHasRoom() {
        QFETCH(int, fromBottom);
        QFETCH(bool, below);
        HostWindow host;
        QVERIFY(host.show());
        host.showCoach();
        const int height = host.chrome.coach()->height();
        const int wantedBottom = screenArea().bottom() - height - fromBottom;
        host.window.move(host.window.x(),
                         host.window.y() + wantedBottom - host.chrome.buttonRect().bottom());
        QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        QCOMPARE(host.chrome.buttonRect().bottom(), wantedBottom);

        const QRect button = host.chrome.buttonRect();
        const QRect coach = host.chrome.coach()->geometry();
        const QLayout* layout = host.chrome.coach()->layout();
        QCOMPARE(host.chrome.coach()->height(), height);
        QCOMPARE(coach.x(), button.center().x() - coach.width() / 2);
        QCOMPARE(layout->count(), 2);
        if (below) {
            QCOMPARE(coach.top(), button.bottom() + 1);
            QCOMPARE(layout->itemAt(0)->widget(), host.chrome.pointerRow());
            QCOMPARE(host.chrome.pointerRow()->y(), 0);
        } else {
            QCOMPARE(coach.bottom(), button.top() - 1);
            QCOMPARE(layout->itemAt(1)->widget(), host.chrome.pointerRow());
            QCOMPARE(host.chrome.pointerRow()->geometry().bottom(), coach.height() - 1);
        }
        QCOMPARE(host.chrome.pointerRow()->width(), coach.width());
        QCOMPARE(host.chrome.pointer()->text(), below ? QStringLiteral("▲") : QStringLiteral("▼"));
        QCOMPARE(host.chrome.pointer()->accessibleName(), below ? nameAbove : nameBelow);
        QCOMPARE(host.chrome.pointer()->geometry(), QRect(QPoint(host.chrome.expectedPointerX(), 0),
                                                          host.chrome.pointer()->sizeHint()));
    }

    void arrowIsInPlaceAtOnceWhenTheMarkChangesSides() {
        HostWindow host;
        QVERIFY(host.show());
        host.showCoach();
        // Exactly enough room below for the rows of a plain chart, and too little for more.
        const int wantedBottom = screenArea().bottom() - host.chrome.coach()->height();
        host.window.move(host.window.x(),
                         host.window.y() + wantedBottom - host.chrome.buttonRect().bottom());
        QTRY_COMPARE(host.chrome.coach()->geometry().bottom(), screenArea().bottom());
        QCOMPARE(host.chrome.pointerRow()->y(), 0);
        QCoreApplication::processEvents();
        for (int round = 0; round < 2; ++round) {
            host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
            QCOMPARE(host.chrome.pointer()->text(), QStringLiteral("▼"));
            QCOMPARE(host.chrome.pointerRow()->geometry().bottom(),
                     host.chrome.coach()->height() - 1);
            QCOMPARE(host.chrome.pointer()->x(), host.chrome.expectedPointerX());
            host.controller.setControlProfile(NavigationControlProfile::Default);
            QCOMPARE(host.chrome.pointer()->text(), QStringLiteral("▲"));
            QCOMPARE(host.chrome.pointerRow()->y(), 0);
            QCOMPARE(host.chrome.pointer()->x(), host.chrome.expectedPointerX());
        }
    }

    void markThatFitsNowhereStandsBelowAndIsPushedUp() {
        QFont large = usualFont;
        HostWindow host;
        QVERIFY(host.show());
        // A font that makes the mark higher than half of the screen.
        for (int pointSize = 10; pointSize < 60; ++pointSize) {
            large.setPointSize(pointSize);
            QApplication::setFont(large);
            QCoreApplication::processEvents();
            if (NavigationChrome::naturalSize(*host.chrome.coach()).height() >
                screenArea().height() * 3 / 4)
                break;
        }
        host.window.move(500, screenArea().center().y());
        QCoreApplication::processEvents();
        host.showCoach();
        const int height = host.chrome.coach()->height();
        QCOMPARE(height, NavigationChrome::naturalSize(*host.chrome.coach()).height());
        QVERIFY(height > screenArea().height() * 2 / 3);
        QVERIFY(height < screenArea().height());
        QCOMPARE(host.chrome.coach()->geometry().bottom(), screenArea().bottom());
        QCOMPARE(host.chrome.pointer()->text(), QStringLiteral("▲"));
        QCOMPARE(host.chrome.pointer()->accessibleName(), nameAbove);
    }

    void arrowStaysOverTheButtonNearTheEdgesOfTheScreen_data() {
        QTest::addColumn<int>("x");
        for (int x : {-190, -120, -60, 0, 100, 500, 900, 1000, 1080, 1150})
            QTest::addRow("window at %d", x) << x;
    }
    void arrowStaysOverTheButtonNearTheEdgesOfTheScreen() {
        QFETCH(int, x);
        HostWindow host;
        QVERIFY(host.show());
        host.window.move(x, 150);
        QTRY_COMPARE(host.window.x(), x);
        host.showCoach();
        const QRect coach = host.chrome.coach()->geometry();
        QCOMPARE(coach, host.chrome.expectedCoachRect());
        QVERIFY(screenArea().contains(coach));

        const QLabel* pointer = host.chrome.pointer();
        QCOMPARE(pointer->x(), host.chrome.expectedPointerX());
        QVERIFY(host.chrome.pointerRow()->rect().contains(pointer->geometry()));
        const int center = pointer->mapToGlobal(pointer->rect().center()).x();
        const int aim = host.chrome.buttonRect().center().x();
        const int half = pointer->width() / 2 + 1;
        if (aim >= coach.left() + half && aim <= coach.right() - half)
            QVERIFY(qAbs(center - aim) <= 1);
        else
            QVERIFY(pointer->x() == 0 ||
                    pointer->geometry().right() == host.chrome.pointerRow()->width() - 1);
    }

    void resizedRowKeepsTheArrowWhereItPoints() {
        HostWindow host;
        QVERIFY(host.show());
        host.showCoach();
        QWidget* row = host.chrome.pointerRow();
        const QLabel* pointer = host.chrome.pointer();
        const int before = pointer->x();
        QVERIFY(before > 10);
        row->resize(row->width() + 40, row->height());
        QCOMPARE(pointer->x(), before);
        row->resize(before, row->height());
        QCOMPARE(pointer->x(), before - pointer->sizeHint().width());
        row->resize(3, row->height());
        QCOMPARE(pointer->x(), 0);
    }

    void markFollowsItsWindow() {
        HostWindow host;
        QVERIFY(host.show());
        host.showCoach();
        host.window.move(700, 300);
        QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        QCOMPARE(host.chrome.pointer()->x(), host.chrome.expectedPointerX());
    }

private:
    const QFont usualFont = QApplication::font();
};

int main(int argc, char** argv) {
    return runOnOneScreen<ZembraNavigationCoachMarkTest>(argc, argv);
}
#include "ZembraNavigationCoachMark_test.moc"
