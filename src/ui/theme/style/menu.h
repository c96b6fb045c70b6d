// Menu items.
//
// Thread:  the main thread.
#pragma once

#include <QSize>

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionMenuItem;

namespace glidemap::style {

constexpr int menuPadding = 5;
constexpr double menuRadius = 9;

void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option);
QSize menuItemSize(const QStyleOptionMenuItem& option, const QSize& contents);

} // namespace glidemap::style
