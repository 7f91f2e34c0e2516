// SPDX-License-Identifier: MIT
#include "TranslatedWindow.h"

#include <ZembraNavigationController.h>

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using zembra::NavigationControlProfile;

namespace {

// Every text of a window that a user can read or hear, by where it stands.
QMap<QString, QString> texts(const TranslatedWindow& window) {
    QMap<QString, QString> result;
    const auto note = [&](const QObject& object, const char* what, const QString& text) {
        if (!text.isEmpty())
            result.insert(QStringLiteral("%1 %2 %3")
                              .arg(quintptr(&object), 0, 16)
                              .arg(QString::fromLatin1(what), object.objectName()),
                          text);
    };
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.append(const_cast<TranslatedWindow*>(&window));
    for (const QWidget* widget : std::as_const(widgets)) {
        note(*widget, "title", widget->windowTitle());
        note(*widget, "tip", widget->toolTip());
        note(*widget, "accessible name", widget->accessibleName());
        note(*widget, "accessible description", widget->accessibleDescription());
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            note(*label, "text", label->text());
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            note(*button, "text", button->text());
    }
    for (const QAction* action : window.findChildren<QAction*>()) {
        note(*action, "text", action->text());
        note(*action, "tip", action->toolTip());
    }
    const zembra::Plot& plot = *window.view().plot();
    result.insert(QStringLiteral("plot title"), QString::fromStdString(plot.title()));
    result.insert(QStringLiteral("plot x"), QString::fromStdString(plot.axis(2).title()));
    result.insert(QStringLiteral("plot y"), QString::fromStdString(plot.axis(0).title()));
    return result;
}

// What reads the same in every language: signs such as "?", and the languages' own names.
bool isUntranslated(const QString& place, const QString& text) {
    return std::none_of(text.begin(), text.end(), [](QChar sign) { return sign.isLetter(); }) ||
           place.contains(QStringLiteral("language "));
}

} // namespace

class TranslatedWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        // But for what the platform without a screen says of each window with a least size.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not )")));
    }

    void everyTextChangesWithTheLanguageAndBack_data() {
        QTest::addColumn<NavigationControlProfile>("profile");
        QTest::newRow("plain") << NavigationControlProfile::Default;
        QTest::newRow("control points") << NavigationControlProfile::ControlPointEditing;
    }
    void everyTextChangesWithTheLanguageAndBack() {
        QFETCH(NavigationControlProfile, profile);
        TranslatedWindow window;
        window.view().navigationController()->setControlProfile(profile);
        window.resize(600, 400);
        window.show();
        QCoreApplication::processEvents();
        const QMap<QString, QString> english = texts(window);
        QVERIFY(english.values().contains(QStringLiteral("Reset View to Data")));
        QVERIFY(english.values().contains(QStringLiteral("Got it")));

        QVERIFY(window.setLanguage(QStringLiteral("de")));
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Übersetztes Diagramm"));
        QCoreApplication::processEvents();
        const QMap<QString, QString> german = texts(window);
        QCOMPARE(german.keys(), english.keys());
        int changed = 0;
        for (auto text = english.begin(); text != english.end(); ++text) {
            if (isUntranslated(text.key(), text.value()))
                continue;
            ++changed;
            QVERIFY2(german.value(text.key()) != text.value(),
                     qPrintable(text.key() + QStringLiteral(": ") + text.value()));
        }
        QVERIFY(changed > 20);

        QVERIFY(window.setLanguage(QStringLiteral("en")));
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Translated chart"));
        QCoreApplication::processEvents();
        QCOMPARE(texts(window), english);
    }

    void unknownLanguageChangesNothing() {
        TranslatedWindow window;
        QVERIFY(window.setLanguage(QStringLiteral("de")));
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Übersetztes Diagramm"));
        QVERIFY(!window.setLanguage(QStringLiteral("xx")));
        QCoreApplication::processEvents();
        QCOMPARE(window.windowTitle(), QStringLiteral("Übersetztes Diagramm"));
    }

    void menuSwitchesTheLanguage() {
        TranslatedWindow window;
        window.findChild<QAction*>(QStringLiteral("language de"))->trigger();
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Übersetztes Diagramm"));
        window.findChild<QAction*>(QStringLiteral("language en"))->trigger();
        QTRY_COMPARE(window.windowTitle(), QStringLiteral("Translated chart"));
    }
};

QTEST_MAIN(TranslatedWindowTest)
#include "TranslatedWindow_test.moc"
