// SPDX-License-Identifier: MIT
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/ContextTranslator.h"
#include "support/NavigationChrome.h"
#include "support/OffscreenScreens.h"
#include "support/Strict.h"

#include <QAccessible>
#include <QVBoxLayout>

using zembra::InteractionMode;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

struct HostWindow {
    HostWindow() : chrome(strip) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&strip);
        layout->addStretch();
        window.setGeometry(300, 200, 400, 300);
        strip.setNavigationController(&controller);
    }
    [[nodiscard]] bool show() {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }

    QWidget window;
    ZembraNavigationController controller;
    ZembraNavigationWidget strip{&window};
    NavigationChrome chrome;
};

QAccessibleInterface* accessible(QObject* object) {
    return QAccessible::queryAccessibleInterface(object);
}

// What a screen reader finds below an object, depth first: "role: name", or "role" for the
// nameless, a line each; what is invisible is passed over.
QStringList heard(const QAccessibleInterface& parent) {
    QStringList lines;
    for (int i = 0; i < parent.childCount(); ++i) {
        const QAccessibleInterface* child = parent.child(i);
        if (!child || child->state().invisible)
            continue;
        static const QHash<int, QString> roles{
            {QAccessible::Button, QStringLiteral("button")},
            {QAccessible::PushButton, QStringLiteral("button")},
            {QAccessible::StaticText, QStringLiteral("text")},
            {QAccessible::CheckBox, QStringLiteral("check box")},
            {QAccessible::Border, QStringLiteral("frame")},
            {QAccessible::Client, QStringLiteral("group")},
            {QAccessible::Window, QStringLiteral("window")},
        };
        const QString role = roles.value(
            child->role(), QStringLiteral("role %1").arg(static_cast<int>(child->role())));
        const QString name = child->text(QAccessible::Name);
        lines << (name.isEmpty() ? role : role + QStringLiteral(": ") + name);
        lines += heard(*child);
    }
    return lines;
}

// The widgets that Tab reaches in a window, from `first` on, until it comes round.
QStringList tabStops(QWidget* first) {
    QStringList names;
    QWidget* widget = first;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() &&
            widget->window() == first->window())
            names << accessible(widget)->text(QAccessible::Name);
        widget = widget->nextInFocusChain();
    } while (widget != first);
    return names;
}

} // namespace

class ZembraNavigationAccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void stripIsAButtonAndSometimesALabel() {
        HostWindow host;
        QVERIFY(host.show());
        QCOMPARE(heard(*accessible(&host.strip)),
                 QStringList{QStringLiteral("button: Chart controls")});
        host.controller.setInteractionMode(InteractionMode::BoxZoom);
        QCOMPARE(heard(*accessible(&host.strip)),
                 (QStringList{QStringLiteral("text: Box Zoom mode"),
                              QStringLiteral("button: Chart controls")}));
        QVERIFY(accessible(host.chrome.helpButton())->state().focusable);
        // Its text would be read as a question mark; its name says what it does.
        QCOMPARE(host.chrome.helpButton()->text(), QStringLiteral("?"));
    }

    void buttonCanBePressedByAScreenReader() {
        HostWindow host;
        QVERIFY(host.show());
        QAccessibleActionInterface* action =
            accessible(host.chrome.helpButton())->actionInterface();
        QVERIFY(action);
        QVERIFY(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
        action->doAction(QAccessibleActionInterface::pressAction());
        QTRY_VERIFY(host.chrome.popup()->isVisible());
    }

    void popupTellsEveryRow() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        const QAccessibleInterface* popup = accessible(host.chrome.popup());
        QCOMPARE(popup->text(QAccessible::Name), QStringLiteral("Chart controls"));
        QCOMPARE(heard(*popup),
                 (QStringList{
                     QStringLiteral("text: Chart controls"),
                     QStringLiteral("text: Alt + wheel: Zoom in or out around the pointer"),
                     QStringLiteral("text: Left-button drag: Pan"),
                     QStringLiteral("text: Double-click: Reset view to data"),
                     QStringLiteral("text: Right-click: Open all chart actions"),
                     QStringLiteral("text: Z: Toggle Box Zoom mode"),
                     QStringLiteral("text: Escape: Leave Box Zoom and restore Pan mode"),
                 }));
        QVERIFY(accessible(host.chrome.popupRow(0))->state().focusable);
        QVERIFY(accessible(host.chrome.popupRow(0))->state().focused);
        QCOMPARE(tabStops(host.chrome.popupTitle()),
                 (QStringList{
                     QStringLiteral("Chart controls"),
                     QStringLiteral("Alt + wheel: Zoom in or out around the pointer"),
                     QStringLiteral("Left-button drag: Pan"),
                     QStringLiteral("Double-click: Reset view to data"),
                     QStringLiteral("Right-click: Open all chart actions"),
                     QStringLiteral("Z: Toggle Box Zoom mode"),
                     QStringLiteral("Escape: Leave Box Zoom and restore Pan mode"),
                 }));
    }

    void coachMarkTellsEverythingInReadingOrder() {
        HostWindow host;
        QVERIFY(host.show());
        host.strip.showCoachMark();
        QTRY_VERIFY(host.chrome.gotIt()->hasFocus());
        const QAccessibleInterface* coach = accessible(host.chrome.coach());
        QCOMPARE(coach->text(QAccessible::Name), QStringLiteral("Chart controls"));
        QCOMPARE(
            heard(*coach),
            (QStringList{
                QStringLiteral("group"),
                QStringLiteral("text: Points to the Chart controls button above"),
                QStringLiteral("text: Chart controls"),
                QStringLiteral("text: Charts are interactive. Use these controls to navigate:"),
                QStringLiteral("group"),
                QStringLiteral("text: Alt + wheel"),
                QStringLiteral("text: Zoom in or out around the pointer"),
                QStringLiteral("text: Left-button drag"),
                QStringLiteral("text: Pan"),
                QStringLiteral("text: Double-click"),
                QStringLiteral("text: Reset view to data"),
                QStringLiteral("text: Right-click"),
                QStringLiteral("text: Open all chart actions"),
                QStringLiteral("text: Z"),
                QStringLiteral("text: Toggle Box Zoom mode"),
                QStringLiteral("text: Escape"),
                QStringLiteral("text: Leave Box Zoom and restore Pan mode"),
                QStringLiteral("check box: Don't show again"),
                QStringLiteral("button: Got it"),
            }));
        QVERIFY(accessible(host.chrome.dontShowAgain())->state().checked);
        QVERIFY(accessible(host.chrome.gotIt())->state().focused);
        QVERIFY(accessible(host.chrome.gotIt())->state().defaultButton);
        QCOMPARE(tabStops(host.chrome.dontShowAgain()),
                 (QStringList{QStringLiteral("Don't show again"), QStringLiteral("Got it")}));
    }

    void namesFollowTheLanguage() {
        HostWindow host;
        ContextTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(accessible(host.chrome.helpButton())->text(QAccessible::Name),
                     QStringLiteral("W{Chart controls}"));
        QCOMPARE(accessible(host.chrome.popup())->text(QAccessible::Name),
                 QStringLiteral("W{Chart controls}"));
        QCOMPARE(accessible(host.chrome.coach())->text(QAccessible::Name),
                 QStringLiteral("W{Chart controls}"));
        QCOMPARE(accessible(host.chrome.pointer())->text(QAccessible::Name),
                 QStringLiteral("W{Points to the Chart controls button above}"));
    }

    void everyPartHasAnObjectName() {
        const ZembraNavigationWidget strip;
        const QList<QWidget*> parts = strip.findChildren<QWidget*>();
        QCOMPARE(parts.size(), 2 + 1 + 8 + 1 + 2 + 2 + 1 + 14 + 2);
        for (const QWidget* part : parts)
            QVERIFY(part->objectName().startsWith(QStringLiteral("zembraNavigation")));
    }
};

int main(int argc, char** argv) {
    return runOnOneScreen<ZembraNavigationAccessibilityTest>(argc, argv);
}
#include "ZembraNavigationAccessibility_test.moc"
