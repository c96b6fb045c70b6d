// The entries of lists, and of pickers' open lists.
//
// Thread:  the main thread.
#pragma once

#include <QSize>

class QPainter;
class QStyleOptionViewItem;
class QWidget;

namespace glidemap::style {

void drawItem(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget);

// Only what lies behind the entry's text.
void drawItemGround(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget);

QSize itemSize(const QStyleOptionViewItem& option, const QSize& contents, const QWidget* widget);

} // namespace glidemap::style
