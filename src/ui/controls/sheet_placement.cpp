#include "ui/controls/sheet_placement.h"

#include "ui/controls/kept_within.h"

#include <algorithm>

namespace glidemap {

namespace {

constexpr int beneathTitle = 10;
constexpr int screenGap = 8;

} // namespace

QRect placeSheet(QSize wanted, QSize least, int scrollBar, const QRect& window,
                 const QRect& screen) {
    const QRect room = screen.adjusted(screenGap, screenGap, -screenGap, -screenGap);
    const int height = std::min(wanted.height(), room.height());
    const int withBar =
        std::max(wanted.width(), least.width()) + (least.height() > height ? scrollBar : 0);
    const int width = std::min(withBar, room.width());
    const int x = window.x() + (window.width() - width) / 2;
    return {keptWithin(x, width, room.x(), room.x() + room.width()),
            keptWithin(window.y() + beneathTitle, height, room.y(), room.y() + room.height()),
            width, height};
}

} // namespace glidemap
