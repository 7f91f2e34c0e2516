// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraNavigationDefinitions.h>
#include <qzembra_export.h>

#include <QWidget>

#include <memory>

class QFrame;

namespace zembra {

class ZembraGraphicsView;
class ZembraNavigationController;

/// A slim strip that tells about the controls of a chart; the host places it beside the view.
///
/// At its right edge a "?" button opens a popup that lists the controls; at its left edge a label
/// shows while box zoom is on. A coach mark, a hint that points at the button, appears when the
/// host asks for it. The strip owns these children and neither the view nor the controller, which
/// may go at any time. Its texts follow the language of the application, its looks the style.
/// GUI thread only.
class QZEMBRA_EXPORT ZembraNavigationWidget : public QWidget {
    Q_OBJECT

public:
    explicit ZembraNavigationWidget(QWidget* parent = nullptr);
    ~ZembraNavigationWidget() override;

    /// Follows `view` and its controller; null lets go of both.
    void setGraphicsView(ZembraGraphicsView* view);
    /// Follows `controller` alone and forgets any view; null lets go of both.
    void setNavigationController(ZembraNavigationController* controller);

    /// Shows the hint beside the "?" button, or as soon as the strip and the button are visible.
    /// Closes the help popup. Nothing is remembered: whether the hint is due is for the host to
    /// say.
    void showCoachMark();
    /// Hides the hint, or calls off one that waits; `coachDismissed` is not emitted.
    void hideCoachMark();

    /// The view; null when there is none or it is gone.
    ZembraGraphicsView* graphicsView() const;
    /// The controller; null when there is none or it is gone.
    ZembraNavigationController* navigationController() const;
    bool isCoachMarkVisible() const;

    QSize sizeHint() const override;
    /// The size hint: a strip does not shrink.
    QSize minimumSizeHint() const override;

    /// The name of the modifier that zooms with the wheel, translated.
    static QString platformModifierText();
    /// The controls of a plain chart, whatever the strip is bound to.
    static QList<ZembraNavigationDefinitions::ControlRow> controlRows();

Q_SIGNALS:
    /// The user has closed the hint, with "Got it" or Escape. `dontShowAgain` is the answer of its
    /// check box, which is for the host to keep. A slot may delete the strip.
    void coachDismissed(bool dontShowAgain);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void bindNavigationController(ZembraNavigationController* controller);
    void layoutChrome();
    void updateModeLabel();
    void retranslateUi();
    void observeContainingWindow();
    void observeNativeWindow();
    void repositionVisiblePopups();
    void scheduleRepositioning();
    bool handleHelpButtonKey(QEvent* event);

    void createHelpPopup();
    void updateHelpContent();
    void positionPopup(QFrame* popup);
    void showHelpPopup();

    void createCoachMark();
    void createCoachControls();
    void positionCoachMark();
    void placeCoachPointerRow(bool coachIsBelow);
    void dismissCoachMark();

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
