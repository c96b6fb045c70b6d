// Where a sheet lies: in the middle beneath the title of the window that it hangs from, and wholly
// on the screen.
//
// Units:   points on the screen.
// Thread:  any.
#pragma once

#include <QRect>
#include <QSize>

namespace glidemap {

// `least` is what the content can shrink to; where not even that fits, the sheet is widened by
// `scrollBar`, with which the content scrolls. `window` is the inside of the window.
QRect placeSheet(QSize wanted, QSize least, int scrollBar, const QRect& window,
                 const QRect& screen);

} // namespace glidemap
