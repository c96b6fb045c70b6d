// Shows how a gesture is made, in a loop without end: at most 40 frames a second while it can be
// seen, none while it cannot, and one still frame where the user wants nothing to move.
//
// The loop follows the clock, so that all views show the same moment. Each frame that is painted
// asks for the next one, in step with the screen: where nothing is painted (hidden, minimised, scrolled away, no frames asked
// for by the desktop), no timer runs.
//
// Not reachable by Tab: there is nothing to do in it. To assistive technology it is an animation;
// the owner gives it the gesture's name in the current language as its accessible name.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "core/gesture_type.h"
#include "ui/theme/theme.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <functional>

namespace glidemap {

class GestureDemoView : public QWidget {
public:
    // Seconds; the loop begins whenever they are a multiple of its length.
    using Clock = std::function<double()>;

    explicit GestureDemoView(GestureType shown, QWidget* parent = nullptr,
                             Clock clock = secondsSinceReferenceDate);

    void setGesture(GestureType shown);
    GestureType shownGesture() const { return gesture; }

    // The wall clock, counted from the first of January 2001 in Greenwich.
    static double secondsSinceReferenceDate();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    double moment() const;
    bool canBeSeen() const;

    GestureType gesture;
    Clock now;
    QTimer untilNextFrame;
    QPointer<QWindow> shownIn;
    Subscription toTheme;
};

} // namespace glidemap
