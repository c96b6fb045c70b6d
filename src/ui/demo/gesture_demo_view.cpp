#include "ui/demo/gesture_demo_view.h"

#include "ui/demo/draw_gesture_demo.h"

#include <QPainter>

namespace glidemap {

GestureDemoView::GestureDemoView(GestureType shown, QWidget* parent)
    : QWidget(parent), gesture(shown) {
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
}

void GestureDemoView::setGesture(GestureType shown) {
    gesture = shown;
    update();
}

void GestureDemoView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    demo::draw(gesture, 0, painter, size());
}

} // namespace glidemap
