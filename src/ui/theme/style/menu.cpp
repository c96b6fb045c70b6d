#include "ui/theme/style/menu.h"

#include "ui/theme/style/paint.h"

#include <QStyleOption>
#include <algorithm>

namespace glidemap::style {

namespace {

constexpr int itemHeight = 26;
constexpr int separatorHeight = 9;
constexpr int sidePadding = 10;
constexpr int markWidth = 20;
constexpr int iconWidth = 24;
// The width of the submenu chevron, and of the gap before a shortcut.
constexpr int trailingWidth = 22;
constexpr int textFlags =
    Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic | Qt::TextHideMnemonic;

void drawSeparator(QPainter& painter, const QRect& rect) {
    const QRectF line(rect.left() + sidePadding, rect.center().y(), rect.width() - 2 * sidePadding,
                      1);
    painter.fillRect(snapped(painter, line), color(Role::separator));
}

int leadingWidth(const QStyleOptionMenuItem& option) {
    return sidePadding + (option.menuHasCheckableItems ? markWidth : 0) +
           (option.maxIconWidth > 0 ? iconWidth : 0);
}

QColor textColor(const QStyleOptionMenuItem& option) {
    if (!option.state.testFlag(QStyle::State_Enabled)) {
        return color(Role::tertiary);
    }
    return color(option.state.testFlag(QStyle::State_Selected) ? Role::onAccent : Role::primary);
}

void drawLeading(QPainter& painter, const QStyleOptionMenuItem& option, const QRect& rect) {
    int x = rect.left() + sidePadding;
    if (option.menuHasCheckableItems) {
        if (option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked) {
            const QRectF mark(x - 3, rect.center().y() - 7, 16, 16);
            drawCheckMark(painter, mark, textColor(option));
        }
        x += markWidth;
    }
    if (!option.icon.isNull()) {
        const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
        const bool isLit = option.state.testFlag(QStyle::State_Selected);
        option.icon.paint(&painter, QRect(x, rect.center().y() - 7, 16, 16), Qt::AlignCenter,
                          !isEnabled ? QIcon::Disabled
                          : isLit    ? QIcon::Selected
                                     : QIcon::Normal);
    }
}

} // namespace

void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(painter, option.rect);
        return;
    }
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    if (isEnabled && option.state.testFlag(QStyle::State_Selected)) {
        fillRounded(painter, snapped(painter, option.rect), 5, color(Role::accentGround));
    }
    drawLeading(painter, option, option.rect);
    painter.setPen(textColor(option));
    const qsizetype tab = option.text.indexOf(QLatin1Char('\t'));
    const QRect room = option.rect.adjusted(leadingWidth(option), 0, -sidePadding, 0);
    painter.setFont(option.font);
    painter.drawText(room, textFlags | Qt::AlignLeft, option.text.left(tab));
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QPointF center(room.right() - 2, room.center().y() + 0.5);
        drawChevron(painter, center, 7, Direction::right, textColor(option));
    } else if (tab >= 0) {
        if (isEnabled && !option.state.testFlag(QStyle::State_Selected)) {
            painter.setPen(color(Role::secondary));
        }
        painter.drawText(room, textFlags | Qt::AlignRight, option.text.mid(tab + 1));
    }
}

QSize menuItemSize(const QStyleOptionMenuItem& option, const QSize& contents) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        return {contents.width(), separatorHeight};
    }
    const bool hasTrailing = option.menuItemType == QStyleOptionMenuItem::SubMenu ||
                             option.text.contains(QLatin1Char('\t'));
    const int width =
        contents.width() + leadingWidth(option) + sidePadding + (hasTrailing ? trailingWidth : 0);
    return {width, std::max(itemHeight, contents.height() + 6)};
}

} // namespace glidemap::style
