#include "ui/controls/dimmed.h"

#include <QGraphicsOpacityEffect>
#include <QWidget>

namespace glidemap {

namespace {
constexpr double dimmedOpacity = 0.5;
}

// A widget with a graphics effect is rendered into a pixmap on each repaint. Therefore, the effect
// is removed when the widget is no longer dimmed.
void setDimmed(QWidget* widget, bool dims) {
    if (dims == isDimmed(widget)) {
        return;
    }
    if (!dims) {
        widget->setGraphicsEffect(nullptr);
        return;
    }
    auto* effect = new QGraphicsOpacityEffect(widget);
    effect->setOpacity(dimmedOpacity);
    widget->setGraphicsEffect(effect);
}

bool isDimmed(const QWidget* widget) {
    return widget->graphicsEffect() != nullptr;
}

} // namespace glidemap
