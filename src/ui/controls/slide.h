// Animates a value towards a target. If the user prefers reduced motion, the value jumps instead.
//
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
    // Calls `onStep` and redraws the widget on each step.
    explicit Slide(QWidget* widget, std::function<void()> onStep = {});

    // Starts the animation. Jumps if the widget is invisible or the user prefers reduced motion.
    void glideTo(double target);
    void jumpTo(double target);

    double value() const { return current; }
    double target() const { return wanted; }

    // Called when the value reaches the target; a jump calls it immediately.
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
