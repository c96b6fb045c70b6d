// A small card with an arrow to its anchor control, within the control's window. It closes when the
// user clicks elsewhere or presses Escape. The anchor handles clicks on itself.
//
// It stays within the window: below the anchor if there is room, otherwise above. It is a child
// widget, because only some desktops position a popup window correctly.
//
// Thread:  the main thread.
// Owner:   the window that contains it. It is deleted with the window or on closing.
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
    // Takes ownership of the content, pads it by 8 points, shows the popover and focuses it.
    Popover(QWidget* anchor, QWidget* content);
    ~Popover() override;

    // Called once, on closing. Not called if the anchor was destroyed, because the callback's owner
    // usually goes with the anchor.
    std::function<void()> onClosed;

    void dismiss();

    PopoverPlacement placement() const { return placed; }

    // Whether an open popover of the widget's window covers it completely.
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
