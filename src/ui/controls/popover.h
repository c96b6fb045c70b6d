// A small card with an arrow that points to its anchor control. The popover closes when the user
// clicks elsewhere or presses Escape. The anchor itself handles clicks on the anchor.
//
// The popover is below the anchor if there is room, otherwise on the side with more room, and
// always within the anchor's window. It is a child widget of that window, because not every desktop
// positions popup windows correctly.
//
// Thread:  the main thread.
// Owner:   the window that contains it. The popover is deleted together with the window, or when it
//          closes.
// Errors:  none. It closes if its anchor is hidden or destroyed.
#pragma once

#include "ui/controls/popover_placement.h"
#include "ui/theme/theme.h"

#include <QPointer>
#include <QWidget>
#include <functional>

namespace glidemap {

class Popover : public QWidget {
public:
    // Takes ownership of `content`, pads it by 8 points, and shows and focuses the popover.
    Popover(QWidget* anchor, QWidget* content);
    ~Popover() override;

    // Called once, when the popover closes. Not called if the anchor was destroyed, because the
    // callback's owner is usually destroyed together with the anchor.
    std::function<void()> onClosed;

    void dismiss();

    PopoverPlacement placement() const { return placed; }

    // Whether an open popover in the same window covers the widget completely.
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
    void applyTheme();
    bool isOnCard(QPointF onScreen) const;
    bool isWithin(const QWidget* widget) const;

    QPointer<QWidget> anchor;
    QPointer<Backdrop> backdrop;
    PopoverPlacement placed{};
    bool isClosed = false;
    bool isPlacing = false;
    Subscription toTheme;
};

} // namespace glidemap
