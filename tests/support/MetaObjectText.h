// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QStringList>

/// What a class itself adds to its meta-object, a line each, in order: its methods with the names
/// of their parameters, properties, enumerations, constructors and class infos.
inline QStringList metaObjectText(const QMetaObject& meta) {
    static const char* const kinds[] = {"method", "signal", "slot", "constructor"};
    QStringList lines;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const QByteArrayList names = method.parameterNames();
        lines << QString::fromLatin1(kinds[method.methodType()]) + QLatin1Char(' ') +
                     QString::fromLatin1(method.methodSignature()) +
                     (names.isEmpty() ? QString()
                                      : QLatin1Char(' ') + QString::fromLatin1(names.join(' ')));
    }
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        lines << QStringLiteral("property ") + QString::fromLatin1(meta.property(i).name());
    for (int i = meta.enumeratorOffset(); i < meta.enumeratorCount(); ++i)
        lines << QStringLiteral("enum ") + QString::fromLatin1(meta.enumerator(i).name());
    for (int i = 0; i < meta.constructorCount(); ++i)
        lines << QStringLiteral("constructor ") +
                     QString::fromLatin1(meta.constructor(i).methodSignature());
    for (int i = meta.classInfoOffset(); i < meta.classInfoCount(); ++i)
        lines << QStringLiteral("info ") + QString::fromLatin1(meta.classInfo(i).name());
    return lines;
}
