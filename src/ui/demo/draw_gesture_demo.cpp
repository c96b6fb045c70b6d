#include "ui/demo/draw_gesture_demo.h"

namespace glidemap::demo {

void draw(GestureType /*gesture*/, double /*t*/, QPainter& /*painter*/, const QSizeF& /*size*/) {}

} // namespace glidemap::demo
