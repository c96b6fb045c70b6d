#include "ui/theme/style/check_box.h"

#include "ui/theme/style/paint.h"

#include <QStyleOption>
#include <algorithm>

namespace glidemap::style {

namespace {

constexpr int indicatorSize = 16;
constexpr int labelGap = 7;
constexpr int textFlags = Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextHideMnemonic;

void drawMark(QPainter& painter, const QStyleOption& option, const QRectF& shape, Mark mark,
              const QColor& drawn) {
    if (mark == Mark::radio) {
        const double inset = shape.width() * 0.31;
        const QRectF dot = shape.adjusted(inset, inset, -inset, -inset);
        fillRounded(painter, dot, dot.width() / 2, drawn);
    } else if (option.state.testFlag(QStyle::State_NoChange)) {
        const QRectF dash(shape.left() + 4, shape.center().y() - 0.9, shape.width() - 8, 1.8);
        fillRounded(painter, dash, 0.9, drawn);
    } else {
        drawCheckMark(painter, shape, drawn);
    }
}

} // namespace

void drawIndicator(QPainter& painter, const QStyleOption& option, const QRectF& place, Mark mark) {
    const QRectF shape = snapped(painter, place);
    const double radius = mark == Mark::radio ? shape.width() / 2 : boxRadius;
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isSet =
        option.state.testFlag(QStyle::State_On) || option.state.testFlag(QStyle::State_NoChange);
    if (isSet && isEnabled) {
        fillRounded(painter, shape, radius, color(Role::accentGround));
    } else {
        fillRounded(painter, shape, radius, color(Role::field, isEnabled ? 1 : 0.5));
        strokeRounded(painter, shape, radius, hairline(painter),
                      color(isEnabled ? Role::tertiary : Role::outline));
    }
    if (isEnabled && option.state.testFlag(QStyle::State_Sunken)) {
        fillRounded(painter, shape, radius, color(Role::pressed));
    } else if (isEnabled && option.state.testFlag(QStyle::State_MouseOver)) {
        fillRounded(painter, shape, radius, color(Role::hover));
    }
    if (isSet) {
        drawMark(painter, option, shape, mark, color(isEnabled ? Role::onAccent : Role::tertiary));
    }
    if (showsFocus(option)) {
        drawFocusRing(painter, shape, radius);
    }
}

QRect indicatorRect(const QStyleOption& option) {
    const QRect& whole = option.rect;
    const QRect leading(whole.left() + ringMargin,
                        whole.top() + (whole.height() - indicatorSize) / 2, indicatorSize,
                        indicatorSize);
    return QStyle::visualRect(option.direction, whole, leading);
}

QRect indicatorLabelRect(const QStyleOption& option) {
    const QRect leading = option.rect.adjusted(ringMargin + indicatorSize + labelGap, 0, 0, 0);
    return QStyle::visualRect(option.direction, option.rect, leading);
}

void drawMarkedButton(QPainter& painter, const QStyleOptionButton& option, Mark mark) {
    drawIndicator(painter, option, indicatorRect(option), mark);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const QRect label = indicatorLabelRect(option);
    const QString text =
        option.fontMetrics.elidedText(option.text, Qt::ElideRight, label.width(), textFlags);
    painter.setPen(isEnabled ? option.palette.color(QPalette::WindowText) : color(Role::tertiary));
    painter.drawText(label,
                     textFlags |
                         static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)),
                     text);
}

QSize markedButtonSize(const QStyleOptionButton& option) {
    const QSize text = option.fontMetrics.size(textFlags, option.text);
    const int label = option.text.isEmpty() ? 0 : labelGap + text.width() + 1;
    const int height = std::max(indicatorSize, option.text.isEmpty() ? 0 : text.height());
    return {2 * ringMargin + indicatorSize + label, 2 * ringMargin + height};
}

} // namespace glidemap::style
