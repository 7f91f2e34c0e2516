// SPDX-License-Identifier: MIT
#include "window/ColumnDialog.h"

#include "TableReader.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

#include <initializer_list>

using viewer::ChartKind;
using viewer::ColumnChoice;
using viewer::ColumnDialog;
using viewer::Options;

namespace {

ColumnChoice choiceFor(const std::string& text, const Options& options = {}) {
    const viewer::Table table = viewer::parseTable(text, "text", {options.by});
    return viewer::choiceOf(table, viewer::planChart(table, options), options);
}

std::string someTable() {
    return "date,a,b,w\n2000-01-01,1,10,x\n2000-01-02,2,20,y\n2000-01-03,3,30,x\n";
}

ColumnChoice wideChoice() {
    std::string header = "t";
    std::string row = "1";
    for (int i = 1; i < 200; ++i) {
        header += ",sensor " + std::to_string(i);
        row += "," + std::to_string(i);
    }
    return choiceFor(header + "\n" + row + "\n" + row + "\n");
}

using Names = std::vector<std::string>;

void setKind(ColumnDialog& dialog, ChartKind kind) {
    dialog.kindBox()->setCurrentIndex(dialog.kindBox()->findData(static_cast<int>(kind)));
}

} // namespace

class ColumnDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    }

    void ItBeginsWithWhatIsShown() {
        Options shown;
        shown.kind = ChartKind::Scatter;
        shown.by = "w";
        shown.logY = true;
        shown.y = {"b"};
        shown.title = "title";
        const ColumnDialog dialog(choiceFor(someTable(), shown));
        QCOMPARE(dialog.kindBox()->currentText(), QStringLiteral("Markers"));
        QCOMPARE(dialog.xBox()->currentText(), QStringLiteral("date (dates)"));
        QCOMPARE(dialog.byBox()->currentText(), QStringLiteral("w (words)"));
        QVERIFY(dialog.logYBox()->isChecked());
        QVERIFY(!dialog.logXBox()->isChecked());
        const Options same = dialog.options();
        QVERIFY(!same.guesses);
        QVERIFY(same.kind == ChartKind::Scatter && same.logY && !same.logX);
        QCOMPARE(*same.x, "date");
        QCOMPARE(same.y, Names({"b"}));
        QCOMPARE(*same.by, "w");
        QCOMPARE(*same.title, "title");
    }

    void EveryColumnIsListedWithWhatItHolds() {
        const ColumnDialog dialog(choiceFor(someTable()));
        QStringList rows;
        for (int i = 0; i < dialog.yList()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* const item = dialog.yList()->topLevelItem(i);
            rows.append(item->text(0) + u' ' + item->text(1) +
                        (item->isDisabled()                   ? QStringLiteral(" disabled")
                         : item->checkState(0) == Qt::Checked ? QStringLiteral(" checked")
                                                              : QString()));
        }
        QCOMPARE(
            rows,
            QStringList({QStringLiteral("date dates disabled"), QStringLiteral("a numbers checked"),
                         QStringLiteral("b numbers checked"), QStringLiteral("w words disabled")}));
    }

    void WhatIsChosenIsAskedFor() {
        ColumnDialog dialog(choiceFor(someTable()));
        setKind(dialog, ChartKind::Bar);
        dialog.xBox()->setCurrentIndex(4);
        dialog.yList()->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
        dialog.byBox()->setCurrentIndex(1);
        dialog.logYBox()->setChecked(true);
        const Options chosen = dialog.options();
        QVERIFY(chosen.kind == ChartKind::Bar && chosen.logY);
        QCOMPARE(*chosen.x, "w");
        QCOMPARE(chosen.y, Names({"b"}));
        QCOMPARE(*chosen.by, "date");
        dialog.xBox()->setCurrentIndex(0);
        dialog.byBox()->setCurrentIndex(0);
        QVERIFY(!dialog.options().x);
        QVERIFY(!dialog.options().by);
    }

    void OnlyWhatHasAMeaningForTheKindIsAskedFor() {
        Options shown;
        shown.y = {"a", "b"};
        shown.x = "a";
        shown.logX = true;
        shown.logY = true;
        ColumnDialog dialog(choiceFor(someTable(), shown));
        setKind(dialog, ChartKind::Box);
        QVERIFY(!dialog.xBox()->isEnabled());
        QVERIFY(!dialog.logXBox()->isEnabled());
        QVERIFY(!dialog.options().x && !dialog.options().logX && dialog.options().logY);
        setKind(dialog, ChartKind::Candlestick);
        QVERIFY(!dialog.yList()->isEnabled() && !dialog.byBox()->isEnabled());
        QVERIFY(dialog.options().y.empty() && dialog.options().x);
        setKind(dialog, ChartKind::HeatMap);
        QVERIFY(!dialog.options().logX && !dialog.options().logY);
        // Back again, nothing is lost.
        setKind(dialog, ChartKind::Line);
        const Options same = dialog.options();
        QVERIFY(same.logX && same.logY);
        QCOMPARE(*same.x, "a");
        QCOMPARE(same.y, Names({"a", "b"}));
        // Dates have no logarithm.
        dialog.xBox()->setCurrentIndex(1);
        QVERIFY(!dialog.logXBox()->isEnabled());
        QVERIFY(!dialog.options().logX);
    }

    void AHeatMapTakesAMatrixOrPositions() {
        ColumnDialog dialog(choiceFor("a,b,c\n0,0,1\n1,0,2\n0,1,3\n1,1,4\n"));
        setKind(dialog, ChartKind::HeatMap);
        // One y too many for positions.
        QVERIFY(!dialog.okButton()->isEnabled());
        dialog.yList()->topLevelItem(2)->setCheckState(0, Qt::Unchecked);
        QVERIFY(dialog.okButton()->isEnabled());
        dialog.byBox()->setCurrentIndex(3);
        QCOMPARE(*dialog.options().by, "c");
        dialog.xBox()->setCurrentIndex(0);
        QVERIFY(!dialog.byBox()->isEnabled());
        QVERIFY(!dialog.options().by);
        dialog.allButton()->click();
        QCOMPARE(dialog.options().y, Names({"a", "b", "c"}));
        QVERIFY(dialog.okButton()->isEnabled());
    }

    void AChoiceThatCannotBeDrawnIsHeldBack() {
        ColumnDialog dialog(choiceFor(someTable()));
        QVERIFY(dialog.okButton()->isEnabled());
        dialog.noneButton()->click();
        QVERIFY(!dialog.okButton()->isEnabled());
        QVERIFY(hasText(dialog, QStringLiteral("Check at least one column.")));
        dialog.yList()->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QVERIFY(dialog.okButton()->isEnabled());
        QVERIFY(hasText(dialog, QStringLiteral("Columns checked: 1")));
        setKind(dialog, ChartKind::Bar);
        dialog.xBox()->setCurrentIndex(4);
        QVERIFY(dialog.okButton()->isEnabled());
        setKind(dialog, ChartKind::Line);
        QVERIFY(!dialog.okButton()->isEnabled());
    }

    void TheFilterFindsAFewAmongManyColumns() {
        ColumnDialog dialog(wideChoice());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(dialog.height() <= 600);
        QCOMPARE(dialog.options().y.size(), std::size_t{199});
        dialog.noneButton()->click();
        dialog.filterLine()->setText(QStringLiteral("SENSOR 17"));
        dialog.allButton()->click();
        QCOMPARE(dialog.options().y.size(), std::size_t{11});
        dialog.filterLine()->setText(QStringLiteral("170"));
        dialog.noneButton()->click();
        dialog.filterLine()->clear();
        QCOMPARE(dialog.options().y.size(), std::size_t{10});
        QCOMPARE(dialog.options().y.front(), "sensor 17");
    }

    void KeysAloneDoAllOfIt() {
        ColumnDialog dialog(choiceFor("t,a,b\n1,2,3\n2,3,4\n"));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        const std::initializer_list<QWidget*> order = {
            dialog.kindBox(),   dialog.xBox(),       dialog.filterLine(), dialog.yList(),
            dialog.allButton(), dialog.noneButton(), dialog.byBox(),      dialog.logXBox(),
            dialog.logYBox(),   dialog.okButton()};
        for (QWidget* const widget : order) {
            QTRY_COMPARE(dialog.focusWidget(), widget);
            if (widget == dialog.kindBox())
                QTest::keyClick(widget, Qt::Key_Down);
            if (widget == dialog.xBox())
                QTest::keyClick(widget, Qt::Key_Home);
            if (widget == dialog.filterLine())
                QTest::keyClicks(widget, QStringLiteral("b"));
            if (widget == dialog.yList()) {
                QTest::keyClick(widget, Qt::Key_Down);
                QTest::keyClick(widget, Qt::Key_Space);
            }
            if (widget == dialog.logYBox())
                QTest::keyClick(widget, Qt::Key_Space);
            if (widget != dialog.okButton())
                QTest::keyClick(widget, Qt::Key_Tab);
        }
        QTest::keyClick(dialog.okButton(), Qt::Key_Return);
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
        const Options chosen = dialog.options();
        QVERIFY(chosen.kind == ChartKind::Scatter && !chosen.x && chosen.logY);
        QCOMPARE(chosen.y, Names({"a"}));
    }

    void EveryInputHasAName() {
        ColumnDialog dialog(choiceFor(someTable()));
        const auto inputs = std::initializer_list<QWidget*>{
            dialog.kindBox(), dialog.xBox(),    dialog.filterLine(), dialog.yList(),
            dialog.byBox(),   dialog.logXBox(), dialog.logYBox()};
        QStringList mnemonics;
        for (QWidget* const input : inputs) {
            const QString name =
                QAccessible::queryAccessibleInterface(input)->text(QAccessible::Name);
            QVERIFY2(!name.isEmpty(), input->metaObject()->className());
        }
        for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
            if (label->buddy())
                mnemonics.append(QKeySequence::mnemonic(label->text()).toString());
        }
        for (const QAbstractButton* const button : dialog.findChildren<QAbstractButton*>())
            mnemonics.append(QKeySequence::mnemonic(button->text()).toString());
        mnemonics.removeAll(QString());
        QVERIFY(mnemonics.size() >= 9);
        QCOMPARE(mnemonics.removeDuplicates(), qsizetype(0));
    }

private:
    static bool hasText(const ColumnDialog& dialog, const QString& text) {
        for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
            if (label->text() == text)
                return true;
        }
        return false;
    }
};

QTEST_MAIN(ColumnDialogTest)
#include "ColumnDialog_test.moc"
