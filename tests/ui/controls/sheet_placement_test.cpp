#include "ui/controls/sheet_placement.h"

#include <gmock/gmock.h>

#include <ostream>

namespace glidemap {
namespace {

constexpr QSize wanted(460, 640);
constexpr QSize least(400, 600);
constexpr int scrollBar = 12;
constexpr QRect window(300, 100, 700, 520);

struct Row {
    const char* name;
    QSize least;
    QRect window;
    QRect screen;
    QRect placed;
};

const Row rows[] = {
    {"in the middle, beneath the title", least, window, QRect(0, 0, 1920, 1080),
     QRect(420, 110, 460, 640)},
    {"it just fits above the lower edge of the screen", least, window, QRect(0, 0, 1920, 758),
     QRect(420, 110, 460, 640)},
    {"one point too low, so it moves up", least, window, QRect(0, 0, 1920, 757),
     QRect(420, 109, 460, 640)},
    {"the screen is exactly high enough", least, window, QRect(0, 0, 1280, 656),
     QRect(420, 8, 460, 640)},
    {"the content can shrink", least, window, QRect(0, 0, 1280, 655), QRect(420, 8, 460, 639)},
    {"the content just need not scroll", least, window, QRect(0, 0, 1280, 616),
     QRect(420, 8, 460, 600)},
    {"the content scrolls, with room for the bar", least, window, QRect(0, 0, 1280, 615),
     QRect(414, 8, 472, 599)},
    {"wider content than wanted", QSize(500, 600), window, QRect(0, 0, 1920, 1080),
     QRect(400, 110, 500, 640)},
    {"wider content that scrolls", QSize(500, 600), window, QRect(0, 0, 1280, 615),
     QRect(394, 8, 512, 599)},
    {"wider content than the screen", QSize(500, 600), QRect(0, 0, 300, 300), QRect(0, 0, 400, 700),
     QRect(8, 10, 384, 640)},
    {"a screen beside another", least, QRect(2000, 100, 700, 520), QRect(1920, 30, 1280, 1024),
     QRect(2120, 110, 460, 640)},
    {"a window half off the screen", least, QRect(-400, 100, 700, 520), QRect(0, 0, 1280, 1024),
     QRect(8, 110, 460, 640)},
    {"a very small screen", least, QRect(0, 0, 300, 300), QRect(0, 0, 320, 240),
     QRect(8, 8, 304, 224)},
};

TEST(SheetPlacementTest, IsBelowTheTitleBarAndFullyOnTheScreen) {
    for (const Row& row : rows) {
        const QRect placed = placeSheet(wanted, row.least, scrollBar, row.window, row.screen);
        EXPECT_EQ(placed, row.placed) << row.name << ": " << placed.x() << "," << placed.y() << " "
                                      << placed.width() << "×" << placed.height();
    }
}

} // namespace
} // namespace glidemap
