// A value that glides from where it is to where it should be, or jumps there where the user wants
// little motion.
//
// Units:   milliseconds.
// Thread:  the main thread.
// Owner:   the widget that is drawn again on each step.
// Errors:  none.
#pragma once

#include <QEasingCurve>
#include <QVariantAnimation>
#include <functional>

class QWidget;

namespace glidemap {

class Slide {
public:
    // Draws the widget again on each step; `onStep` may do more.
    explicit Slide(QWidget* drawn, std::function<void()> onStep = {});

    // Jumps if the widget cannot be seen, or if motion is to be reduced.
    void glideTo(double target);
    void jumpTo(double target);

    double value() const { return current; }
    double target() const { return wanted; }

    // Called when it has arrived, at once where it jumps.
    std::function<void()> onArrival;

private:
    void step(double at);

    QWidget* widget;
    std::function<void()> stepped;
    QVariantAnimation animation;
    double current = 0;
    double wanted = 0;
};

} // namespace glidemap
