#include "ui/editor/gesture_item_delegate.h"

#include "ui/theme/item_roles.h"
#include "ui/theme/symbol.h"

#include <QPainter>

namespace glidemap {

namespace {

constexpr int markSize = 14;
constexpr int markRoom = 28;

} // namespace

GestureItemDelegate::GestureItemDelegate(GestureType marked, QObject* parent)
    : QStyledItemDelegate(parent), chosen(marked) {}

void GestureItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(headingRole).toBool() ||
        index.data(gestureRole).toInt() != static_cast<int>(chosen)) {
        return;
    }
    QRectF mark(0, 0, markSize, markSize);
    mark.moveCenter(QPointF(option.rect.right() - markRoom / 2.0, option.rect.center().y() + 0.5));
    drawSymbol(*painter, mark, "checkmark", Theme::shared().color(Role::accent));
}

} // namespace glidemap
