// Animates a value to its target, or jumps there if the user prefers reduced motion.
//
// Units:   milliseconds.
// Thread:  the main thread.
// Owner:   the widget that it redraws.
// Errors:  none.
#pragma once

#include <QEasingCurve>
#include <QVariantAnimation>
#include <functional>

class QWidget;

namespace glidemap {

class Slide {
public:
    // Redraws the widget on each step, and calls `onStep`.
    explicit Slide(QWidget* widget, std::function<void()> onStep = {});

    // Jumps if the widget is invisible or if motion is reduced.
    void glideTo(double target);
    void jumpTo(double target);

    double value() const { return current; }
    double target() const { return wanted; }

    // Called on arrival; at once for a jump.
    std::function<void()> onArrival;

private:
    void step(double at);

    QWidget* widget;
    std::function<void()> onStep;
    QVariantAnimation animation;
    double current = 0;
    double wanted = 0;
};

} // namespace glidemap
