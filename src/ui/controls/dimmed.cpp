#include "ui/controls/dimmed.h"

#include <QGraphicsOpacityEffect>
#include <QWidget>

namespace glidemap {

namespace {
constexpr double dimmedOpacity = 0.5;
}

// A graphics effect renders into a pixmap on each repaint, so only dimmed widgets have one.
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
