// A small card that hangs from a control by an arrow, inside the control's own window, until the
// user clicks elsewhere or presses Escape.
//
// It stays within the window: below the control where there is room, else above it. It is no window
// of its own, because only some desktops would place that where it belongs.
//
// Thread:  the main thread.
// Owner:   the window that it lies in; goes with it, or when it is closed.
// Errors:  none. A control that goes takes its popover along.
#pragma once

#include "ui/theme/theme.h"

#include <QFrame>
#include <QPointer>
#include <functional>

namespace glidemap {

class Popover : public QFrame {
public:
    // Takes the content; shows itself.
    Popover(QWidget* anchor, QWidget* content);

    // Called once, when it has been closed, however that came.
    std::function<void()> onClosed;

    void dismiss();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    QPointer<QWidget> hangsFrom;
    bool isClosed = false;
    Subscription toTheme;
};

} // namespace glidemap
