// Tests that, at each size, the application icon is a tile with several colours and transparent
// corners.
#include "ui/theme/application_icon.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QIcon>
#include <QImage>
#include <set>

namespace glidemap {
namespace {

QImage iconOf(int pixels) {
    return applicationIcon().pixmap(QSize(pixels, pixels), 1.0).toImage();
}

int hues(const QImage& image) {
    std::set<int> found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() == 255 && color.saturation() > 60) {
                found.insert(color.hue() / 30);
            }
        }
    }
    return static_cast<int>(found.size());
}

bool hasWhite(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == QColor(Qt::white)) {
                return true;
            }
        }
    }
    return false;
}

TEST(ApplicationIconTest, IsDrawnAtEveryRequestedSize) {
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256}) {
        SCOPED_TRACE(pixels);
        const QImage image = iconOf(pixels);
        ASSERT_EQ(image.size(), QSize(pixels, pixels));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(image.pixelColor(pixels - 1, pixels - 1).alpha(), 0);
        EXPECT_GT(image.pixelColor(pixels / 2, pixels / 8).alpha(), 240);
        EXPECT_GT(image.pixelColor(pixels / 8, pixels / 2).alpha(), 240);
        EXPECT_GE(hues(image), 2) << "the tile and the drawing on it";
        EXPECT_TRUE(hasWhite(image)) << "the hand";
    }
}

} // namespace
} // namespace glidemap
