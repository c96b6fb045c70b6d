// The position of a sheet: centred below the title bar of its window, and entirely on the screen.
//
// Units:   points on the screen.
// Thread:  any.
#pragma once

#include <QRect>
#include <QSize>

namespace glidemap {

// `least` is the content's minimum size. If even that does not fit, the sheet is widened by
// `scrollBar`, the width of the scroll bar. `window` is the window without its frame.
QRect placeSheet(QSize wanted, QSize least, int scrollBar, const QRect& window,
                 const QRect& screen);

} // namespace glidemap
