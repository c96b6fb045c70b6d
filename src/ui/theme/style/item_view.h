// The entries of list views and of open combo boxes.
//
// Thread:  the main thread.
#pragma once

#include <QSize>

class QPainter;
class QStyleOptionViewItem;
class QWidget;

namespace glidemap::style {

void drawItem(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget);

// Draws only the background of an entry.
void drawItemGround(QPainter& painter, const QStyleOptionViewItem& option, const QWidget* widget);

QSize itemSize(const QStyleOptionViewItem& option, const QSize& contents, const QWidget* widget);

} // namespace glidemap::style
