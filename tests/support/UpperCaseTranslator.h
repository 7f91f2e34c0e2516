// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

/// Translates every text of one context to "[TEXT]", so that a test sees which texts are translated
/// and where, and that placeholders are filled after the translation.
class UpperCaseTranslator : public QTranslator {
public:
    explicit UpperCaseTranslator(const char* translatedContext) : context(translatedContext) {}

    QString translate(const char* askedContext, const char* source, const char* disambiguation,
                      int n) const override {
        if (context != askedContext || disambiguation || n != -1)
            return {};
        return QLatin1Char('[') + QString::fromUtf8(source).toUpper() + QLatin1Char(']');
    }
    bool isEmpty() const override { return false; }

private:
    QByteArray context;
};
