#include "ui/controls/slide.h"

#include "ui/theme/theme.h"

#include <QWidget>
#include <utility>

namespace glidemap {

Slide::Slide(QWidget* widget, std::function<void()> onStep)
    : widget(widget), onStep(std::move(onStep)) {
    animation.setDuration(160);
    animation.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&animation, &QVariantAnimation::valueChanged, &animation,
                     [this](const QVariant& value) { step(value.toDouble()); });
    QObject::connect(&animation, &QVariantAnimation::finished, &animation, [this] {
        if (onArrival) {
            onArrival();
        }
    });
}

void Slide::glideTo(double target) {
    if (!widget->isVisible() || Theme::shared().reducesMotion()) {
        jumpTo(target);
        return;
    }
    wanted = target;
    animation.stop();
    animation.setStartValue(current);
    animation.setEndValue(target);
    animation.start();
}

void Slide::jumpTo(double target) {
    animation.stop();
    wanted = target;
    step(target);
    if (onArrival) {
        onArrival();
    }
}

void Slide::step(double at) {
    current = at;
    if (onStep) {
        onStep();
    }
    widget->update();
}

} // namespace glidemap
