// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

/// Marks each text by the context that it is translated in: "W{...}" for the navigation strip,
/// "D{...}" for the navigation definitions. Everything else stays as it is.
class ContextTranslator : public QTranslator {
public:
    using QTranslator::QTranslator;

    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override {
        if (disambiguation || n != -1)
            return {};
        const QByteArrayView asked(context);
        if (asked == "zembra::ZembraNavigationWidget")
            return widgetText(QString::fromUtf8(source));
        if (asked == "ZembraNavigationDefinitions")
            return definitionText(QString::fromUtf8(source));
        return {};
    }
    bool isEmpty() const override { return false; }

    static QString widgetText(const QString& text) {
        return QStringLiteral("W{") + text + QLatin1Char('}');
    }
    static QString definitionText(const QString& text) {
        return QStringLiteral("D{") + text + QLatin1Char('}');
    }
};
