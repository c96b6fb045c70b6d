// Computes the position of a sheet: centred below the title bar of its window, and entirely on the
// screen.
//
// Units:   points on the screen.
// Thread:  any.
#pragma once

#include <QRect>
#include <QSize>

namespace glidemap {

// `least` is the minimum size of the content. If the content needs more width than `wanted`, the
// sheet is wider. If `wanted` or the screen is not tall enough for the content, the content
// scrolls, and the sheet is wider by `scrollBar`, the width of the scroll bar. `window` is the
// window's geometry without its frame.
QRect placeSheet(QSize wanted, QSize least, int scrollBar, const QRect& window,
                 const QRect& screen);

} // namespace glidemap
