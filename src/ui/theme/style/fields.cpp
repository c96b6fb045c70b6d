#include "ui/theme/style/fields.h"

#include "ui/theme/style/paint.h"

#include <QStyleOption>

namespace glidemap::style {

void drawLineEdit(QPainter& painter, const QStyleOptionFrame& option) {
    if (option.lineWidth <= 0) {
        return; // the editable combo box that contains the field draws the frame
    }
    const QRectF shape = snapped(painter, option.rect);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isFocused = option.state.testFlag(QStyle::State_HasFocus);
    fillRounded(painter, shape, controlRadius, color(Role::field, isEnabled ? 1 : 0.5));
    if (isFocused) {
        strokeRounded(painter, shape, controlRadius, 2, color(Role::accent));
    } else {
        strokeRounded(painter, shape, controlRadius, hairline(painter), color(Role::outline));
    }
}

void drawToolButtonGround(QPainter& painter, const QStyleOption& option) {
    const QRectF shape = snapped(painter, option.rect);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isDown =
        option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On);
    if (isEnabled && isDown) {
        fillRounded(painter, shape, controlRadius, color(Role::pressed));
    } else if (isEnabled && option.state.testFlag(QStyle::State_MouseOver)) {
        fillRounded(painter, shape, controlRadius, color(Role::hover));
    }
    if (showsFocus(option)) {
        strokeRounded(painter, shape, controlRadius, 2, color(Role::accent));
    }
}

bool drawToolButtonIcon(QPainter& painter, const QStyleOptionToolButton& option) {
    if (option.icon.isNull() || option.toolButtonStyle != Qt::ToolButtonIconOnly) {
        return false;
    }
    QRect place(QPoint(), option.iconSize);
    place.moveCenter(option.rect.center());
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    option.icon.paint(&painter, place, Qt::AlignCenter,
                      isEnabled ? QIcon::Normal : QIcon::Disabled);
    return true;
}

} // namespace glidemap::style
