// SPDX-License-Identifier: MIT
#pragma once

#include <QRegularExpression>
#include <QTest>

/// Makes every warning on the log from here to the end of the test function fail it.
inline void failOnAnyWarning() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
}
