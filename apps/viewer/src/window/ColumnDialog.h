// SPDX-License-Identifier: MIT
#pragma once

#include "ColumnChoice.h"

#include <QDialog>
#include <QString>

#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace viewer {

/// Asks which columns of a table are drawn, and how. Begins with what is shown.
class ColumnDialog : public QDialog {
    Q_OBJECT

public:
    explicit ColumnDialog(ColumnChoice choice, QWidget* parent = nullptr);

    /// What was chosen; nothing in it is left to guess.
    Options options() const;

    QComboBox* kindBox() const { return kinds; }
    /// The rows' number first, then the columns.
    QComboBox* xBox() const { return xs; }
    QLineEdit* filterLine() const { return filter; }
    /// The columns in the order of the table, checked where they are drawn.
    QTreeWidget* yList() const { return ys; }
    QPushButton* allButton() const { return all; }
    QPushButton* noneButton() const { return none; }
    /// None first, then the columns.
    QComboBox* byBox() const { return bys; }
    QCheckBox* logXBox() const { return logX; }
    QCheckBox* logYBox() const { return logY; }
    QPushButton* okButton() const { return ok; }

private:
    void fillKinds();
    void fillColumns();
    void arrange();
    void showChoice();
    void checkShown(bool checked);
    void showMatching();
    void followKind();
    void followChoice();

    ChartKind kind() const;
    /// The column of an item of the boxes for x and by; null for the first item.
    const ChoosableColumn* chosen(const QComboBox* box) const;
    bool isDrawn(int place) const;
    int drawnCount() const;
    /// What is wrong with the choice; empty where nothing is.
    QString problem() const;
    QString hint() const;

    ColumnChoice choice;
    QComboBox* kinds;
    QComboBox* xs;
    QLineEdit* filter;
    QTreeWidget* ys;
    QPushButton* all;
    QPushButton* none;
    QComboBox* bys;
    QCheckBox* logX;
    QCheckBox* logY;
    QLabel* message;
    QPushButton* ok = nullptr;
};

} // namespace viewer
