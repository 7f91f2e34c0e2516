// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraNavigationDefinitions.h>
#include <qzembra_export.h>

#include <QList>
#include <QObject>

#include <memory>

class QAction;
class QEvent;

namespace zembra {

/// Owns the four navigation actions of a chart and knows its interaction mode.
///
/// It zooms nothing itself: it turns actions into requests, which a view answers, and keeps the
/// checkable box zoom action and the mode in step. Each view makes its own controller; it belongs
/// to its parent. GUI thread only.
class QZEMBRA_EXPORT ZembraNavigationController : public QObject {
    Q_OBJECT

public:
    /// Follows the language changes of `parent`, if there is one.
    explicit ZembraNavigationController(QObject* parent = nullptr);
    ~ZembraNavigationController() override;

    /// Makes `mode` the current one and brings the box zoom action in line with it. A slot may
    /// delete the controller.
    void setInteractionMode(InteractionMode mode);
    void setControlProfile(NavigationControlProfile profile);
    /// Gives the actions their texts in the current language.
    void retranslate();

    /// Zoom in, zoom out, reset, box zoom: always these four in this order. Their shortcuts work
    /// while the widget they were added to has the focus.
    QList<QAction*> navigationActions() const;
    InteractionMode interactionMode() const;
    NavigationControlProfile controlProfile() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void zoomInRequested();
    void zoomOutRequested();
    void resetViewToDataRequested();
    void interactionModeChanged(zembra::InteractionMode mode);
    void controlProfileChanged(zembra::NavigationControlProfile profile);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
