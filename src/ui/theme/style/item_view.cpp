#include "ui/theme/style/item_view.h"

#include "ui/theme/item_roles.h"
#include "ui/theme/style/combo_box.h"
#include "ui/theme/style/paint.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStyleOption>
#include <algorithm>

namespace glidemap::style {

namespace {

constexpr int itemHeight = 28;
constexpr int headingHeight = 28;
constexpr int sidePadding = 8;
constexpr int markWidth = 20;
constexpr int iconGap = 8;
constexpr double itemRadius = 5;

bool isHeading(const QStyleOptionViewItem& option) {
    return option.index.data(headingRole).toBool();
}

bool isEnabled(const QStyleOptionViewItem& option) {
    return option.state.testFlag(QStyle::State_Enabled);
}

// Returns the combo box that opened this list view, or null.
const QComboBox* pickerOf(const QWidget* view) {
    const QWidget* frame = isComboBoxList(view) ? view->window() : nullptr;
    return frame == nullptr ? nullptr : dynamic_cast<const QComboBox*>(frame->parentWidget());
}

bool isLit(const QStyleOptionViewItem& option, const QWidget* widget) {
    return isEnabled(option) && isComboBoxList(widget) &&
           option.state.testFlag(QStyle::State_Selected);
}

QColor textColor(const QStyleOptionViewItem& option, const QWidget* widget) {
    if (isHeading(option)) {
        return color(Role::secondary);
    }
    if (!isEnabled(option)) {
        return color(Role::tertiary);
    }
    if (isLit(option, widget)) {
        return color(Role::onAccent);
    }
    const QVariant own = option.index.data(Qt::ForegroundRole);
    return own.canConvert<QBrush>() ? own.value<QBrush>().color() : color(Role::primary);
}

QFont headingFont() {
    QFont font = Theme::shared().font(TextStyle::caption);
    font.setWeight(QFont::DemiBold);
    return font;
}

// Draws the icon at the left edge and returns the remaining rectangle.
QRect drawIcon(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget,
               const QRect& room) {
    if (!option.features.testFlag(QStyleOptionViewItem::HasDecoration) || option.icon.isNull()) {
        return room;
    }
    const QSize size = option.decorationSize;
    const QRect place(room.left(), room.center().y() + 1 - size.height() / 2, size.width(),
                      size.height());
    option.icon.paint(&painter, place, Qt::AlignCenter,
                      !isEnabled(option)      ? QIcon::Disabled
                      : isLit(option, widget) ? QIcon::Selected
                                              : QIcon::Normal);
    return room.adjusted(size.width() + iconGap, 0, 0, 0);
}

} // namespace

void drawItemGround(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget) {
    if (!isEnabled(option) || isHeading(option)) {
        return;
    }
    const QRectF shape = snapped(painter, option.rect);
    if (isLit(option, widget)) {
        fillRounded(painter, shape, itemRadius, color(Role::accentGround));
    } else if (option.state.testFlag(QStyle::State_Selected)) {
        fillRounded(painter, shape, itemRadius, color(Role::selection));
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
        fillRounded(painter, shape, itemRadius, color(Role::hover));
    }
    if (!isComboBoxList(widget) && showsFocus(option)) {
        strokeRounded(painter, shape, itemRadius, 2, color(Role::accent));
    }
}

void drawItem(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget) {
    drawItemGround(painter, option, widget);
    QRect room = option.rect.adjusted(sidePadding, 0, -sidePadding, 0);
    painter.setFont(isHeading(option) ? headingFont() : option.font);
    if (const QComboBox* picker = pickerOf(widget); picker != nullptr) {
        if (!isHeading(option) && option.index.row() == picker->currentIndex()) {
            const QRectF mark(room.left() - 3, room.center().y() - 7, 16, 16);
            drawCheckMark(painter, mark, textColor(option, widget));
        }
        room.adjust(isHeading(option) ? 0 : markWidth, 0, 0, 0);
    }
    room = drawIcon(painter, option, widget, room);
    painter.setPen(textColor(option, widget));
    const QFontMetrics metrics(painter.font());
    const QString text = metrics.elidedText(option.text, Qt::ElideRight, room.width());
    const int vertical = static_cast<int>(isHeading(option) ? Qt::AlignBottom : Qt::AlignVCenter);
    if (isHeading(option)) {
        room.adjust(0, 0, 0, -5);
    }
    const int horizontal = static_cast<int>(option.displayAlignment & Qt::AlignHorizontal_Mask);
    painter.drawText(room, vertical | horizontal | Qt::TextSingleLine, text);
}

QSize itemSize(const QStyleOptionViewItem& option, const QSize& contents, const QWidget* widget) {
    if (isHeading(option)) {
        return {contents.width() + 2 * sidePadding, headingHeight};
    }
    const int mark = isComboBoxList(widget) ? markWidth : 0;
    return {contents.width() + 2 * sidePadding + mark, std::max(itemHeight, contents.height() + 8)};
}

} // namespace glidemap::style
