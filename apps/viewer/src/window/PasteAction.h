// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

namespace viewer {

/// The action that opens what is on the clipboard; enabled while that can be opened.
///
/// What another program has copied is looked at once the window is active: until then it may cost
/// that program a lot to hand it over, or not be allowed at all.
class PasteAction : public QAction {
    Q_OBJECT

public:
    /// `window` is the one that the user pastes into; it owns the action.
    explicit PasteAction(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void lookIfActive();

    QWidget* window;
    bool isStale = true;
};

} // namespace viewer
