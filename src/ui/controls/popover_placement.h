// Where a popover lies: beneath the control that it hangs from where there is room, else above it,
// and always within the window.
//
// Units:   points in the window.
// Thread:  any.
#pragma once

#include <QRect>
#include <QSize>

namespace glidemap {

struct PopoverPlacement {
    QRect card;   // without the arrow
    bool isAbove; // the arrow is at the lower edge and points down
    int arrowX;   // of the arrow's point
    bool operator==(const PopoverPlacement&) const = default;
};

constexpr int popoverArrowHeight = 8;
constexpr int popoverArrowHalfWidth = 9;
constexpr int popoverRadius = 10;
constexpr int popoverEdgeGap = 6; // between the card and the window's edge

PopoverPlacement placePopover(QSize card, const QRect& anchor, const QRect& window);

} // namespace glidemap
