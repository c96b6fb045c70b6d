// Push buttons: plain, and prominent ones (the default one, toggles that are on, and those with the
// property "prominent").
//
// Thread:  the main thread.
#pragma once

#include <QRectF>
#include <QSize>

class QPainter;
class QStyleOptionButton;
class QWidget;

namespace glidemap::style {

// The background of each control that looks like a button.
struct ButtonLook {
    bool isEnabled = true;
    bool isHovered = false;
    bool isPressed = false;
    bool isProminent = false;
    bool isRecording = false; // captures the next key
};
void drawButtonGround(QPainter& painter, const QRectF& shape, const ButtonLook& look);

void drawPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void drawPushButtonLabel(QPainter& painter, const QStyleOptionButton& option,
                         const QWidget* widget);
QSize pushButtonSize(const QStyleOptionButton& option, const QSize& contents);

} // namespace glidemap::style
