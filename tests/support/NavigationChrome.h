// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraNavigationWidget.h>

#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

/// The parts of a navigation strip, found by their object names.
struct NavigationChrome {
    explicit NavigationChrome(const zembra::ZembraNavigationWidget& ofStrip) : strip(&ofStrip) {}

    template <class Widget>
    Widget* part(const QString& name) const {
        return strip->findChild<Widget*>(QStringLiteral("zembraNavigation") + name);
    }
    QLabel* modeLabel() const { return part<QLabel>(QStringLiteral("ModeLabel")); }
    QToolButton* helpButton() const { return part<QToolButton>(QStringLiteral("HelpButton")); }
    QFrame* popup() const { return part<QFrame>(QStringLiteral("HelpPopup")); }
    QLabel* popupTitle() const { return part<QLabel>(QStringLiteral("HelpTitle")); }
    QLabel* popupRow(int i) const { return part<QLabel>(QStringLiteral("HelpRow%1").arg(i)); }
    QFrame* coach() const { return part<QFrame>(QStringLiteral("Coach")); }
    QWidget* pointerRow() const { return part<QWidget>(QStringLiteral("CoachPointerRow")); }
    QLabel* pointer() const { return part<QLabel>(QStringLiteral("CoachPointer")); }
    QLabel* coachInput(int i) const { return part<QLabel>(QStringLiteral("CoachInput%1").arg(i)); }
    QLabel* coachResult(int i) const {
        return part<QLabel>(QStringLiteral("CoachResult%1").arg(i));
    }
    QCheckBox* dontShowAgain() const {
        return part<QCheckBox>(QStringLiteral("CoachDontShowAgain"));
    }
    QPushButton* gotIt() const { return part<QPushButton>(QStringLiteral("CoachGotItButton")); }

    /// The texts of the popup's rows that are not hidden.
    QStringList popupTexts() const {
        QStringList texts;
        for (int i = 0; popupRow(i); ++i)
            if (!popupRow(i)->isHidden())
                texts << popupRow(i)->text();
        return texts;
    }

    QRect buttonRect() const {
        return {helpButton()->mapToGlobal(QPoint(0, 0)), helpButton()->size()};
    }

    /// Where the popup has to be, by the rules alone: below the button, right-aligned with it,
    /// inside the screen.
    QRect expectedPopupRect() const {
        const QPoint anchor = helpButton()->mapToGlobal(helpButton()->rect().bottomRight());
        const QRect area = areaAt(anchor);
        const QSize size = naturalSize(*popup()).boundedTo(area.size());
        return {kept(anchor.x() - size.width() + 1, size.width(), area.left(), area.right()),
                kept(anchor.y() + 1, size.height(), area.top(), area.bottom()), size.width(),
                size.height()};
    }

    /// Where the coach mark has to be: below the button if it fits there or fits nowhere, else
    /// above; centred on the button, inside the screen.
    QRect expectedCoachRect() const {
        const QRect button = buttonRect();
        const QPoint center = button.center();
        const QRect area = areaAt(center);
        const QSize size = naturalSize(*coach()).boundedTo(area.size());
        const int y = expectedCoachIsBelow() ? button.bottom() + 1 : button.top() - size.height();
        return {kept(center.x() - size.width() / 2, size.width(), area.left(), area.right()),
                kept(y, size.height(), area.top(), area.bottom()), size.width(), size.height()};
    }

    bool expectedCoachIsBelow() const {
        const QRect button = buttonRect();
        const QRect area = areaAt(button.center());
        const int height = naturalSize(*coach()).boundedTo(area.size()).height();
        return button.bottom() + 1 + height <= area.bottom() + 1 ||
               button.top() - height < area.top();
    }

    /// Where in its row the arrow has to begin.
    int expectedPointerX() const {
        const int width = pointer()->sizeHint().width();
        const int x = pointerRow()->mapFromGlobal(buttonRect().center()).x() - width / 2;
        return qMax(0, qMin(x, qMax(pointerRow()->width() - width, 0)));
    }

    /// The size that a window's layout asks for, also where the layouts inside it still have to
    /// hand on a change.
    static QSize naturalSize(const QWidget& window) {
        const QList<QLayout*> layouts = window.findChildren<QLayout*>();
        for (auto inner = layouts.crbegin(); inner != layouts.crend(); ++inner)
            (*inner)->activate();
        const QLayout* layout = window.layout();
        QSize size = window.sizeHint();
        size.setHeight(layout->totalHeightForWidth(size.width()));
        return size;
    }

    static QRect areaAt(QPoint position) {
        const QScreen* screen = QGuiApplication::screenAt(position);
        return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    }

private:
    static int kept(int start, int length, int first, int last) {
        return start >= first ? qMin(qMax(last - length + 1, first), start) : first;
    }

    const zembra::ZembraNavigationWidget* strip;
};
