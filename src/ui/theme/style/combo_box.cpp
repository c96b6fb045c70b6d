#include "ui/theme/style/combo_box.h"

#include "ui/theme/style/paint.h"
#include "ui/theme/style/push_button.h"

#include <QStyleOption>
#include <QWidget>
#include <algorithm>

namespace glidemap::style {

namespace {

constexpr int leadingPadding = 8;
constexpr int arrowWidth = 20;
constexpr int iconGap = 6;

QRect shapeOf(const QStyleOptionComboBox& option) {
    return option.rect.adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
}

// Returns the room for the text, beside the icon.
QRect textRoom(const QStyleOptionComboBox& option) {
    const QRect room = comboBoxTextRect(option);
    const int taken = option.currentIcon.isNull() ? 0 : option.iconSize.width() + iconGap;
    return QStyle::visualRect(option.direction, room, room.adjusted(taken, 0, 0, 0));
}

QString elidedText(const QStyleOptionComboBox& option) {
    return option.fontMetrics.elidedText(option.currentText, Qt::ElideRight,
                                         textRoom(option).width());
}

} // namespace

bool elidesComboBoxText(const QStyleOptionComboBox& option) {
    return elidedText(option) != option.currentText;
}

void drawComboBox(QPainter& painter, const QStyleOptionComboBox& option) {
    const QRectF shape = snapped(painter, shapeOf(option));
    ButtonLook look;
    look.isEnabled = option.state.testFlag(QStyle::State_Enabled);
    look.isHovered = option.state.testFlag(QStyle::State_MouseOver);
    look.isPressed =
        option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On);
    drawButtonGround(painter, shape, look);
    const QPointF center = QRectF(comboBoxArrowRect(option)).center();
    const QColor drawn = color(look.isEnabled ? Role::secondary : Role::tertiary);
    drawChevron(painter, center - QPointF(0, 3.5), 6.5, Direction::up, drawn);
    drawChevron(painter, center + QPointF(0, 3.5), 6.5, Direction::down, drawn);
    if (showsFocus(option) || (option.editable && option.state.testFlag(QStyle::State_HasFocus))) {
        drawFocusRing(painter, shape, controlRadius);
    }
}

void drawComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option) {
    if (option.editable) {
        return;
    }
    if (!option.currentIcon.isNull()) {
        const QRect room = comboBoxTextRect(option);
        const QSize size = option.iconSize;
        const QRect leading(room.left(), room.center().y() + 1 - size.height() / 2, size.width(),
                            size.height());
        option.currentIcon.paint(
            &painter, QStyle::visualRect(option.direction, room, leading), Qt::AlignCenter,
            option.state.testFlag(QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled);
    }
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    painter.setPen(isEnabled ? option.palette.color(QPalette::ButtonText) : color(Role::tertiary));
    const auto alignment =
        QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawText(textRoom(option), static_cast<int>(alignment) | Qt::TextSingleLine,
                     elidedText(option));
}

QRect comboBoxTextRect(const QStyleOptionComboBox& option) {
    const QRect shape = shapeOf(option);
    return QStyle::visualRect(option.direction, option.rect,
                              shape.adjusted(leadingPadding, 0, -arrowWidth, 0));
}

QRect comboBoxArrowRect(const QStyleOptionComboBox& option) {
    const QRect shape = shapeOf(option);
    const QRect trailing(shape.right() + 1 - arrowWidth, shape.top(), arrowWidth, shape.height());
    return QStyle::visualRect(option.direction, option.rect, trailing);
}

QRect comboBoxListRect(const QStyleOptionComboBox& option) {
    return shapeOf(option).adjusted(0, 0, 0, 4);
}

QSize comboBoxSize(const QSize& contents) {
    return QSize(contents.width() + leadingPadding + arrowWidth + 4,
                 std::max(controlHeight, contents.height() + 6)) +
           QSize(2 * ringMargin, 2 * ringMargin);
}

bool isComboBoxList(const QWidget* widget) {
    for (const QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
        if (at->inherits("QComboBoxPrivateContainer")) {
            return true;
        }
        if (at->isWindow()) {
            return false;
        }
    }
    return false;
}

} // namespace glidemap::style
