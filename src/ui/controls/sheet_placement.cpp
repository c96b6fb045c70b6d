#include "ui/controls/sheet_placement.h"

#include <algorithm>

namespace glidemap {

namespace {

constexpr int beneathTitle = 10;
constexpr int screenGap = 8;

int within(int wanted, int extent, int from, int upTo) {
    return std::max(from, std::min(wanted, upTo - extent));
}

} // namespace

QRect placeSheet(QSize wanted, QSize least, int scrollBar, const QRect& window,
                 const QRect& screen) {
    const QRect room = screen.adjusted(screenGap, screenGap, -screenGap, -screenGap);
    const int height = std::min(wanted.height(), room.height());
    const int withBar = wanted.width() + (least.height() > height ? scrollBar : 0);
    const int width = std::min(withBar, room.width());
    const int x = window.x() + (window.width() - width) / 2;
    return {within(x, width, room.x(), room.x() + room.width()),
            within(window.y() + beneathTitle, height, room.y(), room.y() + room.height()), width,
            height};
}

} // namespace glidemap
