// Push buttons, plain and prominent. Default buttons, toggles that are on, and buttons with the
// property "prominent" are prominent.
//
// Thread:  the main thread.
#pragma once

#include <QRectF>
#include <QSize>

class QPainter;
class QStyleOptionButton;
class QWidget;

namespace glidemap::style {

// The state that determines the background of a button and of controls that look like one.
struct ButtonLook {
    bool isEnabled = true;
    bool isHovered = false;
    bool isPressed = false;
    bool isProminent = false;
    bool isRecording = false; // the next key press will be recorded
};
void drawButtonGround(QPainter& painter, const QRectF& shape, const ButtonLook& look);

void drawPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void drawPushButtonLabel(QPainter& painter, const QStyleOptionButton& option,
                         const QWidget* widget);
QSize pushButtonSize(const QStyleOptionButton& option, const QSize& contents);

} // namespace glidemap::style
