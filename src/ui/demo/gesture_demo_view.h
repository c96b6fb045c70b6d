// Shows a gesture in an endless loop: at most 40 frames per second while visible, no frames while
// invisible, and one still frame if the user prefers reduced motion.
//
// The loop follows the clock, so that all views show the same moment. Each painted frame schedules
// the next one, in step with the screen. No timer runs while the view is not painted: hidden,
// minimised, scrolled out of view, or not requested by the desktop.
//
// Tab skips the view, because it has no function. Assistive technology sees an animation; the owner
// sets the gesture's name in the current language as its accessible name.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
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
    // Returns seconds. The loop starts at each multiple of its length.
    using Clock = std::function<double()>;

    explicit GestureDemoView(GestureType gesture, QWidget* parent = nullptr,
                             Clock now = secondsSinceReferenceDate);

    void setGesture(GestureType shown);
    GestureType shownGesture() const { return gesture; }

    // The wall-clock time since 2001-01-01 00:00 UTC.
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
