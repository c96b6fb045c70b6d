// A small card that hangs from a control by an arrow, inside the control's own window, until the
// user clicks elsewhere or presses Escape. A click on the control itself is the control's to answer.
//
// It stays within the window: below the control where there is room, else above it. It is no window
// of its own, because only some desktops would place that where it belongs.
//
// Thread:  the main thread.
// Owner:   the window that it lies in; goes with it, or when it is closed.
// Errors:  none. A control that goes, or is hidden, takes its popover along.
#pragma once

#include "ui/controls/popover_placement.h"
#include "ui/theme/theme.h"

#include <QPointer>
#include <QWidget>
#include <functional>

namespace glidemap {

class Popover : public QWidget {
public:
    // Takes the content, which is padded by 8 points; shows itself, and takes the focus.
    Popover(QWidget* anchor, QWidget* content);
    ~Popover() override;

    // Called once, when it has been closed; not if the control was destroyed, since who listens
    // usually goes with the control.
    std::function<void()> onClosed;

    void dismiss();

    PopoverPlacement placement() const { return placed; }

    // Whether an open popover of the widget's window hides all of it.
    static bool covers(const QWidget& widget);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    class Backdrop;

    void giveFocusBack();
    void place();
    void placeSoon();
    void wearTheme();
    bool isOnCard(QPointF onScreen) const;
    bool isWithin(const QWidget* widget) const;

    QPointer<QWidget> hangsFrom;
    QPointer<Backdrop> backdrop;
    PopoverPlacement placed{};
    bool isClosed = false;
    bool isPlacing = false;
    Subscription toTheme;
};

} // namespace glidemap
