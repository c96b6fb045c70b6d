#include "ui/controls/popover_placement.h"

#include "ui/controls/kept_within.h"

#include <algorithm>

namespace glidemap {

PopoverPlacement placePopover(QSize card, const QRect& anchor, const QRect& window) {
    const QRect room =
        window.adjusted(popoverEdgeGap, popoverEdgeGap, -popoverEdgeGap, -popoverEdgeGap);
    const int anchorBottom = anchor.y() + anchor.height();
    const int roomBottom = room.y() + room.height();
    const int spaceBelow = roomBottom - anchorBottom - popoverArrowHeight;
    const int spaceAbove = anchor.y() - room.y() - popoverArrowHeight;
    const bool isAbove = spaceBelow < card.height() && spaceAbove > spaceBelow;

    const int middle = anchor.x() + anchor.width() / 2;
    const int wantedY = isAbove ? anchor.y() - popoverArrowHeight - card.height()
                                : anchorBottom + popoverArrowHeight;
    const QPoint place(
        keptWithin(middle - card.width() / 2, card.width(), room.x(), room.x() + room.width()),
        keptWithin(wantedY, card.height(), room.y(), roomBottom));

    const int least = place.x() + popoverRadius + popoverArrowHalfWidth;
    const int most = place.x() + card.width() - popoverRadius - popoverArrowHalfWidth;
    return {QRect(place, card), isAbove, std::max(least, std::min(middle, most))};
}

} // namespace glidemap
