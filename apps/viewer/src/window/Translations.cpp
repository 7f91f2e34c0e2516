// SPDX-License-Identifier: MIT
#include "window/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace viewer {

bool installTranslations(const QLocale& locale) {
    auto own = std::make_unique<QTranslator>();
    if (!own->load(locale, QStringLiteral("zembra-view"), QStringLiteral("_"),
                   QStringLiteral(":/i18n")))
        return false;
    // The application owns them; a language that is installed later comes first.
    auto buttons = std::make_unique<QTranslator>();
    if (buttons->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        buttons->setParent(QCoreApplication::instance());
        QCoreApplication::installTranslator(buttons.release());
    }
    own->setParent(QCoreApplication::instance());
    return QCoreApplication::installTranslator(own.release());
}

} // namespace viewer
