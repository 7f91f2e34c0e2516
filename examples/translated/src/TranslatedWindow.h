// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QMainWindow>
#include <QMenu>
#include <QTranslator>

/// A chart whose language is changed while it is shown. The texts of the library are translated in
/// the same file as the window's own, in the contexts "ZembraNavigationDefinitions" and
/// "zembra::ZembraNavigationWidget"; the library sets them again by itself.
class TranslatedWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit TranslatedWindow(QWidget* parent = nullptr);
    ~TranslatedWindow() override;

    /// Shows all texts in that language from the next turn of the event loop on. "en" is the
    /// language of the source texts.
    /// Errors: returns false and changes nothing where there is no translation.
    bool setLanguage(const QString& language);

    zembra::ZembraGraphicsView& view() const { return *chart; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    zembra::ZembraGraphicsView* chart;
    zembra::ZembraNavigationWidget* strip;
    QMenu* languages;
    QTranslator translator;
};
