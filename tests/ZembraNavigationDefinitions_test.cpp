// SPDX-License-Identifier: MIT
#include <ZembraNavigationDefinitions.h>

#include "support/Strict.h"
#include "support/UpperCaseTranslator.h"

#include <QDataStream>
#include <QKeyEvent>
#include <QtEndian>

namespace definitions = zembra::ZembraNavigationDefinitions;
using zembra::InteractionMode;
using zembra::NavigationControlProfile;

namespace {

QList<QPair<QString, QString>> pairs(NavigationControlProfile profile) {
    QList<QPair<QString, QString>> result;
    for (const definitions::ControlRow& row : definitions::controlRows(profile))
        result.append({row.input, row.description});
    return result;
}

const QList<QPair<QString, QString>> defaultRows = {
    {QStringLiteral("Alt + wheel"), QStringLiteral("Zoom in or out around the pointer")},
    {QStringLiteral("Left-button drag"), QStringLiteral("Pan")},
    {QStringLiteral("Double-click"), QStringLiteral("Reset view to data")},
    {QStringLiteral("Right-click"), QStringLiteral("Open all chart actions")},
    {QStringLiteral("Z"), QStringLiteral("Toggle Box Zoom mode")},
    {QStringLiteral("Escape"), QStringLiteral("Leave Box Zoom and restore Pan mode")},
};

const QList<QPair<QString, QString>> editingRows = {
    {QStringLiteral("Alt + wheel"), QStringLiteral("Zoom in or out around the pointer")},
    {QStringLiteral("Left-button drag"), QStringLiteral("Pan empty chart space")},
    {QStringLiteral("Drag control-point handles"), QStringLiteral("Edit control points")},
    {QStringLiteral("Double-click"), QStringLiteral("Edit or add a control point")},
    {QStringLiteral("Right-click"), QStringLiteral("Open all chart actions")},
    {QStringLiteral("Z"), QStringLiteral("Toggle Box Zoom mode")},
    {QStringLiteral("Escape"), QStringLiteral("Leave Box Zoom and restore Pan mode")},
};

template <class Enum>
void checkMetaType(const char* name, Enum low, Enum high) {
    const QMetaType type(qRegisterMetaType<Enum>());
    QCOMPARE(type.name(), name);
    QCOMPARE(QMetaType::fromName(name), type);
    QCOMPARE(type.sizeOf(), qsizetype(4));
    QVERIFY(type.isEqualityComparable());
    QVERIFY(type.equals(&low, &low));
    QVERIFY(!type.equals(&low, &high));
    QVERIFY(type.isOrdered());
    QVERIFY(type.compare(&low, &high) == QPartialOrdering::Less);
    QVERIFY(type.compare(&high, &low) == QPartialOrdering::Greater);
    // Compared as signed numbers: -1 lies below 0.
    const Enum negative = static_cast<Enum>(-1);
    QVERIFY(type.compare(&negative, &low) == QPartialOrdering::Less);
    // No enumerator names: the types are not registered as enumerations of a meta-object.
    QCOMPARE(type.metaObject(), static_cast<const QMetaObject*>(nullptr));

    for (const QDataStream::ByteOrder order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setByteOrder(order);
        QVERIFY(type.save(out, &high));
        QCOMPARE(bytes, order == QDataStream::BigEndian ? QByteArray("\0\0\0\1", 4)
                                                        : QByteArray("\1\0\0\0", 4));
        QDataStream in(bytes);
        in.setByteOrder(order);
        Enum loaded = low;
        QVERIFY(type.load(in, &loaded));
        QCOMPARE(loaded, high);
    }
}

} // namespace

class ZembraNavigationDefinitionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void modesAreIntegersThatTravelInVariantsAndStreams() {
        static_assert(std::is_same_v<std::underlying_type_t<InteractionMode>, int>);
        QCOMPARE(static_cast<int>(InteractionMode::Pan), 0);
        QCOMPARE(static_cast<int>(InteractionMode::BoxZoom), 1);
        checkMetaType("zembra::InteractionMode", InteractionMode::Pan, InteractionMode::BoxZoom);
    }

    void profilesAreIntegersThatTravelInVariantsAndStreams() {
        static_assert(std::is_same_v<std::underlying_type_t<NavigationControlProfile>, int>);
        QCOMPARE(static_cast<int>(NavigationControlProfile::Default), 0);
        QCOMPARE(static_cast<int>(NavigationControlProfile::ControlPointEditing), 1);
        checkMetaType("zembra::NavigationControlProfile", NavigationControlProfile::Default,
                      NavigationControlProfile::ControlPointEditing);
    }

    void actionTextsAreTheSourceTextsWithoutATranslation() {
        QCOMPARE(definitions::zoomInActionText(), QStringLiteral("Zoom In"));
        QCOMPARE(definitions::zoomOutActionText(), QStringLiteral("Zoom Out"));
        QCOMPARE(definitions::resetViewActionText(), QStringLiteral("Reset View to Data"));
        QCOMPARE(definitions::boxZoomActionText(), QStringLiteral("Box Zoom Mode"));
        QCOMPARE(definitions::wheelZoomModifierText(), QStringLiteral("Alt"));
    }

    void textsFollowTheLanguageOfTheMoment() {
        UpperCaseTranslator translator("ZembraNavigationDefinitions");
        QCoreApplication::installTranslator(&translator);
        const QStringList translated{
            definitions::zoomInActionText(), definitions::zoomOutActionText(),
            definitions::resetViewActionText(), definitions::boxZoomActionText(),
            definitions::wheelZoomModifierText()};
        QList<QPair<QString, QString>> rows = pairs(NavigationControlProfile::Default);
        QList<QPair<QString, QString>> moreRows =
            pairs(NavigationControlProfile::ControlPointEditing);
        QCoreApplication::removeTranslator(&translator);

        QCOMPARE(translated,
                 (QStringList{QStringLiteral("[ZOOM IN]"), QStringLiteral("[ZOOM OUT]"),
                              QStringLiteral("[RESET VIEW TO DATA]"),
                              QStringLiteral("[BOX ZOOM MODE]"), QStringLiteral("[ALT]")}));
        // The format is translated first and then filled with the translated modifier.
        QCOMPARE(rows.takeFirst().first, QStringLiteral("[[ALT] + WHEEL]"));
        QCOMPARE(moreRows.takeFirst().first, QStringLiteral("[[ALT] + WHEEL]"));
        for (const auto& [input, description] : rows + moreRows) {
            QVERIFY2(input.startsWith(QLatin1Char('[')), qPrintable(input));
            QVERIFY2(description.startsWith(QLatin1Char('[')), qPrintable(description));
        }
        QCOMPARE(definitions::zoomInActionText(), QStringLiteral("Zoom In"));
    }

    void oneStepInAndOneStepOutAreExactInverses() {
        QCOMPARE(definitions::zoomInFactor(), 0.8);
        QVERIFY(definitions::zoomOutFactor() == 1.25);
        QVERIFY(definitions::zoomInFactor() * definitions::zoomOutFactor() == 1.0);
    }

    void keysAndModifiersAreTheDocumentedOnes() {
        QCOMPARE(definitions::wheelZoomModifier(), Qt::AltModifier);
        QCOMPARE(definitions::boxZoomKey(), Qt::Key_Z);
        QCOMPARE(definitions::leaveInteractionModeKey(), Qt::Key_Escape);
    }

    void wheelDeltaPrefersTheVerticalTurn_data() {
        QTest::addColumn<QPoint>("angleDelta");
        QTest::addColumn<int>("delta");
        QTest::newRow("sideways") << QPoint(120, 0) << 120;
        QTest::newRow("downward") << QPoint(0, -120) << -120;
        QTest::newRow("both") << QPoint(30, 60) << 60;
        QTest::newRow("against each other") << QPoint(-300, 1) << 1;
        QTest::newRow("none") << QPoint(0, 0) << 0;
    }
    void wheelDeltaPrefersTheVerticalTurn() {
        QFETCH(QPoint, angleDelta);
        QFETCH(int, delta);
        QCOMPARE(definitions::wheelZoomDelta(angleDelta), delta);
    }

    void zoomKeysAreRecognised_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<bool>("in");
        QTest::addColumn<bool>("out");
        using Modifiers = Qt::KeyboardModifiers;
        const auto row = [](const char* name, Qt::Key key, Modifiers modifiers, bool in, bool out) {
            QTest::newRow(name) << key << modifiers << in << out;
        };
        const Qt::KeyboardModifier ctrl = Qt::ControlModifier;
        const Qt::KeyboardModifier shift = Qt::ShiftModifier;
        row("Ctrl++", Qt::Key_Plus, ctrl, true, false);
        row("Ctrl+=", Qt::Key_Equal, ctrl, true, false);
        row("Ctrl+-", Qt::Key_Minus, ctrl, false, true);
        row("Ctrl+Shift++", Qt::Key_Plus, ctrl | shift, true, false);
        row("Ctrl+Shift+=", Qt::Key_Equal, ctrl | shift, true, false);
        row("Ctrl+Shift+-", Qt::Key_Minus, ctrl | shift, false, true);
        row("Ctrl+keypad plus", Qt::Key_Plus, ctrl | Qt::KeypadModifier, true, false);
        row("Ctrl+keypad minus", Qt::Key_Minus, ctrl | Qt::KeypadModifier, false, true);
        row("Ctrl+underscore", Qt::Key_Underscore, ctrl, false, false);
        row("=", Qt::Key_Equal, Qt::NoModifier, false, false);
        row("+", Qt::Key_Plus, Qt::NoModifier, false, false);
        row("-", Qt::Key_Minus, Qt::NoModifier, false, false);
        row("Shift+=", Qt::Key_Equal, shift, false, false);
        row("Alt+=", Qt::Key_Equal, Qt::AltModifier, false, false);
        row("Meta+-", Qt::Key_Minus, Qt::MetaModifier, false, false);
        row("Ctrl+Alt+=", Qt::Key_Equal, ctrl | Qt::AltModifier, false, false);
        row("Ctrl+Alt++", Qt::Key_Plus, ctrl | Qt::AltModifier, false, false);
        row("Ctrl+Alt+-", Qt::Key_Minus, ctrl | Qt::AltModifier, false, false);
        row("Ctrl+Meta++", Qt::Key_Plus, ctrl | Qt::MetaModifier, false, false);
        row("Ctrl+Meta+-", Qt::Key_Minus, ctrl | Qt::MetaModifier, false, false);
        row("Ctrl+Z", Qt::Key_Z, ctrl, false, false);
    }
    void zoomKeysAreRecognised() {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(bool, in);
        QFETCH(bool, out);
        const QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCOMPARE(definitions::matchesZoomIn(event), in);
        QCOMPARE(definitions::matchesZoomOut(event), out);
    }

    void everyPlatformBindingIsRecognised() {
        for (const QKeySequence& keys : QKeySequence::keyBindings(QKeySequence::ZoomIn)) {
            const QKeyEvent event(QEvent::KeyPress, keys[0].key(), keys[0].keyboardModifiers());
            QVERIFY2(definitions::matchesZoomIn(event), qPrintable(keys.toString()));
        }
        for (const QKeySequence& keys : QKeySequence::keyBindings(QKeySequence::ZoomOut)) {
            const QKeyEvent event(QEvent::KeyPress, keys[0].key(), keys[0].keyboardModifiers());
            QVERIFY2(definitions::matchesZoomOut(event), qPrintable(keys.toString()));
        }
    }

    void shortcutsAreThePlatformsThenTheAliasAndEachOnce_data() {
        QTest::addColumn<QList<QKeySequence>>("shortcuts");
        QTest::addColumn<QKeySequence::StandardKey>("standard");
        QTest::addColumn<QKeySequence>("alias");
        QTest::newRow("in") << definitions::zoomInShortcuts() << QKeySequence::ZoomIn
                            << QKeySequence(Qt::CTRL | Qt::Key_Equal);
        QTest::newRow("out") << definitions::zoomOutShortcuts() << QKeySequence::ZoomOut
                             << QKeySequence(Qt::CTRL | Qt::Key_Minus);
    }
    void shortcutsAreThePlatformsThenTheAliasAndEachOnce() {
        QFETCH(QList<QKeySequence>, shortcuts);
        QFETCH(QKeySequence::StandardKey, standard);
        QFETCH(QKeySequence, alias);
        QList<QKeySequence> expected = QKeySequence::keyBindings(standard);
        if (!expected.contains(alias))
            expected.append(alias);
        QCOMPARE(shortcuts, expected);
        QCOMPARE(shortcuts.count(alias), 1);
    }

    void zoomInAndZoomOutShareNoShortcut() {
        for (const QKeySequence& keys : definitions::zoomInShortcuts()) {
            QVERIFY(!definitions::zoomOutShortcuts().contains(keys));
            QVERIFY(keys != QKeySequence(definitions::boxZoomKey()));
        }
    }

    void controlRowsTellWhatAProfileDoes() {
        QCOMPARE(pairs(NavigationControlProfile::Default), defaultRows);
        QCOMPARE(pairs(NavigationControlProfile::ControlPointEditing), editingRows);
        QCOMPARE(pairs(static_cast<NavigationControlProfile>(7)), defaultRows);
        QCOMPARE(pairs(static_cast<NavigationControlProfile>(-1)), defaultRows);
    }
};

QTEST_MAIN(ZembraNavigationDefinitionsTest)
#include "ZembraNavigationDefinitions_test.moc"
