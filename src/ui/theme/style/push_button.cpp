#include "ui/theme/style/push_button.h"

#include "ui/theme/style/paint.h"

#include <QLinearGradient>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

namespace glidemap::style {

namespace {

constexpr int sidePadding = 14;
constexpr int minimumWidth = 68;
constexpr int iconGap = 6;

bool isProminent(const QStyleOptionButton& option, const QWidget* widget) {
    return option.features.testFlag(QStyleOptionButton::DefaultButton) ||
           option.state.testFlag(QStyle::State_On) || // a toggle that is on
           (widget != nullptr && widget->property("prominent").toBool());
}

ButtonLook lookOf(const QStyleOptionButton& option, const QWidget* widget) {
    ButtonLook look;
    look.isEnabled = option.state.testFlag(QStyle::State_Enabled);
    look.isHovered = option.state.testFlag(QStyle::State_MouseOver);
    look.isPressed = option.state.testFlag(QStyle::State_Sunken);
    look.isProminent = isProminent(option, widget);
    look.isRecording = widget != nullptr && widget->property("recording").toBool();
    return look;
}

void drawPlainGround(QPainter& painter, const QRectF& shape, const ButtonLook& look) {
    const bool isDark = Theme::shared().isDark();
    const double line = hairline(painter);
    if (look.isEnabled && !isDark) { // a thin shadow lifts the button off its background
        fillRounded(painter, shape.translated(0, line), controlRadius, QColor(0, 0, 0, 20));
    }
    fillRounded(painter, shape, controlRadius, color(Role::field, look.isEnabled ? 1 : 0.5));
    if (look.isEnabled && (look.isPressed || look.isHovered)) {
        fillRounded(painter, shape, controlRadius,
                    color(look.isPressed ? Role::pressed : Role::hover));
    }
    strokeRounded(painter, shape, controlRadius, line,
                  color(look.isEnabled ? Role::tertiary : Role::outline));
}

void drawProminentGround(QPainter& painter, const QRectF& shape, const ButtonLook& look) {
    const QColor base = color(Role::accentGround);
    const int percent = look.isPressed ? 115 : 100;
    const QColor ground = look.isHovered && !look.isPressed ? base.lighter(106) : base;
    QLinearGradient shade(shape.topLeft(), shape.bottomLeft());
    shade.setColorAt(0, ground.darker(percent).lighter(104));
    shade.setColorAt(1, ground.darker(percent));
    fillRounded(painter, shape, controlRadius, shade);
    strokeRounded(painter, shape, controlRadius, hairline(painter), QColor(0, 0, 0, 30));
}

// A prominent button draws its icon in the text colour, because few icons are legible on the accent
// colour.
void drawIcon(QPainter& painter, const QStyleOptionButton& option, const QRect& place,
              const ButtonLook& look) {
    if (!look.isProminent || !look.isEnabled) {
        option.icon.paint(&painter, place, Qt::AlignCenter,
                          look.isEnabled ? QIcon::Normal : QIcon::Disabled);
        return;
    }
    const double ratio = painter.device()->devicePixelRatioF();
    QPixmap icon = option.icon.pixmap(option.iconSize, ratio);
    QPainter tinting(&icon);
    tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tinting.fillRect(QRectF(QPointF(), icon.deviceIndependentSize()), color(Role::onAccent));
    tinting.end();
    painter.drawPixmap(place, icon);
}

QColor textColor(const ButtonLook& look, const QStyleOptionButton& option) {
    if (!look.isEnabled) {
        return color(Role::tertiary);
    }
    return look.isProminent ? color(Role::onAccent) : option.palette.color(QPalette::ButtonText);
}

} // namespace

void drawButtonGround(QPainter& painter, const QRectF& shape, const ButtonLook& look) {
    if (look.isProminent && look.isEnabled) {
        drawProminentGround(painter, shape, look);
    } else {
        drawPlainGround(painter, shape, look);
    }
}

void drawPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget) {
    const QRectF inner =
        QRectF(option.rect).adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    const QRectF shape = snapped(painter, inner);
    drawButtonGround(painter, shape, lookOf(option, widget));
    if (lookOf(option, widget).isRecording) {
        constexpr double tint = 0.14;
        fillRounded(painter, shape, controlRadius, color(Role::accent, tint));
        drawFocusRing(painter, shape, controlRadius);
    } else if (showsFocus(option)) {
        drawFocusRing(painter, shape, controlRadius);
    }
}

void drawPushButtonLabel(QPainter& painter, const QStyleOptionButton& option,
                         const QWidget* widget) {
    const ButtonLook look = lookOf(option, widget);
    const QColor tint = textColor(look, option);
    const QRect inner = option.rect.adjusted(ringMargin + 4, 0, -ringMargin - 4, 0);
    const int iconWidth = option.icon.isNull() ? 0 : option.iconSize.width();
    const int gap = iconWidth > 0 && !option.text.isEmpty() ? iconGap : 0;
    const int room = std::max(0, inner.width() - iconWidth - gap);
    constexpr int flags = Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextHideMnemonic;
    const QString text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, room, flags);
    const int textWidth = option.fontMetrics.size(flags, text).width();
    int x = inner.left() + (inner.width() - iconWidth - gap - textWidth) / 2;
    if (iconWidth > 0) {
        const QRect place(x, inner.center().y() + 1 - option.iconSize.height() / 2, iconWidth,
                          option.iconSize.height());
        drawIcon(painter, option, place, look);
        x += iconWidth + gap;
    }
    painter.setPen(tint);
    painter.drawText(QRect(x, inner.top(), textWidth + 2, inner.height()), flags, text);
}

QSize pushButtonSize(const QStyleOptionButton& option, const QSize& contents) {
    const int gap = !option.icon.isNull() && !option.text.isEmpty() ? iconGap - 4 : 0;
    const bool isOnlyIcon = option.text.isEmpty();
    const int least = isOnlyIcon ? controlHeight : minimumWidth;
    const int padding = isOnlyIcon ? 6 : sidePadding;
    // Uses the font's line height. The line height of Chinese text may be larger, but buttons must
    // have the same height in both languages, and the same height as combo boxes.
    const int content = std::max(option.fontMetrics.height(), option.iconSize.height());
    return QSize(std::max(least, contents.width() + gap + 2 * padding),
                 std::max(controlHeight, content + 8)) +
           QSize(2 * ringMargin, 2 * ringMargin);
}

} // namespace glidemap::style
