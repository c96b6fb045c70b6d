// Shows a gesture in an endless loop. The view draws at most 40 frames per second while it is
// visible, and none while it is invisible. If the user prefers reduced motion, it shows one still
// frame.
//
// The clock determines the position in the loop, so all views show the same moment. Each paint
// event schedules the next frame, in step with the screen. So no timer runs while the view gets no
// paint events: when it is hidden, minimised or scrolled out of view, or when the desktop requests
// no frames.
//
// Tab skips the view, because it is not interactive. The view is exposed to assistive technology as
// an animation. Its owner sets the accessible name: the gesture's name in the current language.
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
    // Returns the time in seconds. The loop starts at each multiple of loopDuration.
    using Clock = std::function<double()>;

    explicit GestureDemoView(GestureType gesture, QWidget* parent = nullptr,
                             Clock now = secondsSinceReferenceDate);

    void setGesture(GestureType shown);
    GestureType shownGesture() const { return gesture; }

    // Returns the wall-clock time since 2001-01-01 00:00 UTC.
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
