// Computes the position of a popover: below its anchor if there is room, otherwise on the side with
// more room, and always within the window.
//
// Units:   points in the window.
// Thread:  any.
#pragma once

#include <QRect>
#include <QSize>

namespace glidemap {

struct PopoverPlacement {
    QRect card;   // without the arrow
    bool isAbove; // if so, the arrow is at the lower edge and points down
    int arrowX;   // the x position of the arrow's tip
    bool operator==(const PopoverPlacement&) const = default;
};

constexpr int popoverArrowHeight = 8;
constexpr int popoverArrowHalfWidth = 9;
constexpr int popoverRadius = 10;
constexpr int popoverEdgeGap = 6; // between the card and the window's edge

PopoverPlacement placePopover(QSize card, const QRect& anchor, const QRect& window);

} // namespace glidemap
