#include "ui/controls/marked_item_delegate.h"

#include "ui/theme/item_roles.h"
#include "ui/theme/symbol.h"

#include <QPainter>

namespace glidemap {

namespace {

constexpr int markSize = 14;
constexpr int markRoom = 28;

} // namespace

MarkedItemDelegate::MarkedItemDelegate(std::optional<int> chosen, QObject* parent)
    : QStyledItemDelegate(parent), chosen(chosen) {}

void MarkedItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (!chosen || index.data(headingRole).toBool() ||
        index.data(entryValueRole).toInt() != *chosen) {
        return;
    }
    QRectF mark(0, 0, markSize, markSize);
    mark.moveCenter(QPointF(option.rect.right() - markRoom / 2.0, option.rect.center().y() + 0.5));
    drawSymbol(*painter, mark, "checkmark", Theme::shared().color(Role::accent));
}

} // namespace glidemap
