// SPDX-License-Identifier: MIT
#pragma once

#include <QRegularExpression>
#include <QTest>

/// Makes every warning on the log from here to the end of the test function fail it, but for what
/// the platform without a screen says of itself when a window is raised or grabs the keyboard.
inline void failOnAnyWarning() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
}
