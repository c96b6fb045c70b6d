#include "ui/controls/popover_placement.h"

#include <gmock/gmock.h>

#include <ostream>

namespace glidemap {

// GoogleTest calls this function to print a placement.
void PrintTo(const PopoverPlacement& placed, std::ostream* out) {
    *out << "card " << placed.card.x() << "," << placed.card.y() << " " << placed.card.width()
         << "×" << placed.card.height() << (placed.isAbove ? " above" : " below") << ", arrow at "
         << placed.arrowX;
}

namespace {

constexpr QRect window(0, 0, 700, 500);
constexpr QSize card(246, 200);

struct Row {
    const char* name;
    QSize card;
    QRect anchor;
    PopoverPlacement placed;
};

const Row rows[] = {
    {"there is room below", card, QRect(300, 100, 22, 22), {QRect(188, 130, 246, 200), false, 311}},
    {"it just fits below: 8 for the arrow, 6 to the edge",
     card,
     QRect(300, 264, 22, 22),
     {QRect(188, 294, 246, 200), false, 311}},
    {"one point too little below",
     card,
     QRect(300, 265, 22, 22),
     {QRect(188, 57, 246, 200), true, 311}},
    {"at the lower edge", card, QRect(300, 478, 22, 22), {QRect(188, 270, 246, 200), true, 311}},
    {"at the left edge, where the arrow stays off the corner",
     card,
     QRect(0, 100, 22, 22),
     {QRect(6, 130, 246, 200), false, 25}},
    {"near the left edge, where the arrow still points at the middle",
     card,
     QRect(30, 100, 22, 22),
     {QRect(6, 130, 246, 200), false, 41}},
    {"at the right edge", card, QRect(678, 100, 22, 22), {QRect(448, 130, 246, 200), false, 675}},
    {"no room on either side, more of it below",
     QSize(246, 450),
     QRect(300, 100, 22, 22),
     {QRect(188, 44, 246, 450), false, 311}},
    {"no room on either side, more of it above",
     QSize(246, 450),
     QRect(300, 300, 22, 22),
     {QRect(188, 6, 246, 450), true, 311}},
    {"larger than the window: its beginning is seen",
     QSize(900, 700),
     QRect(300, 100, 22, 22),
     {QRect(6, 6, 900, 700), false, 311}},
};

TEST(PopoverPlacementTest, PointsAtTheAnchorAndStaysInTheWindow) {
    for (const Row& row : rows) {
        EXPECT_EQ(placePopover(row.card, row.anchor, window), row.placed) << row.name;
    }
}

} // namespace
} // namespace glidemap
