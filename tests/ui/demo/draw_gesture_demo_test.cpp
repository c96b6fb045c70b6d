// Compares pixels. Everything is painted on a transparent image, so the alpha of a pixel is the
// opacity of its content. The alphas along a line across a stroke add up to the stroke's width
// times its opacity.
#include "ui/demo/draw_gesture_demo.h"
#include "ui/demo/gesture_demo.h"
#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <numbers>

namespace glidemap::demo {

namespace {

struct View {
    QSizeF size;
    double pixelRatio = 1;
};

QImage painted(GestureType gesture, double t, const View& view) {
    QImage image((view.size * view.pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(view.pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(gesture, t, painter, view.size);
    return image;
}

double opacityAt(const QImage& image, QPointF point) {
    const QPointF pixel = point * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y())).alphaF();
}

QPointF on(const QRectF& pad, Point point) {
    return {pad.x() + point.x * pad.width(), pad.y() + point.y * pad.height()};
}

// Returns the sum of alphas between two points: the width of a stroke times its opacity, in points.
double inkBetween(const QImage& image, QPointF from, QPointF to) {
    const double ratio = image.devicePixelRatio();
    const int pixels = static_cast<int>(QLineF(from, to).length() * ratio);
    double ink = 0;
    for (int index = 0; index < pixels; ++index) {
        ink += opacityAt(image, from + (to - from) * ((index + 0.5) / pixels)) / ratio;
    }
    return ink;
}

double inkWithin(const QImage& image, const QRectF& part) {
    const double ratio = image.devicePixelRatio();
    double ink = 0;
    for (double y = part.top(); y < part.bottom(); y += 1 / ratio) {
        for (double x = part.left(); x < part.right(); x += 1 / ratio) {
            ink += opacityAt(image, {x, y});
        }
    }
    return ink;
}

class Appearance : public testing::Test {
protected:
    Appearance() { Theme::shared().pin(ColorScheme::light); }
    Appearance(const Appearance&) = delete;
    Appearance& operator=(const Appearance&) = delete;
    ~Appearance() override { Theme::shared().pin({}); }
};

bool isCircle(GestureType gesture) {
    return gesture == GestureType::drawCircle || gesture == GestureType::drawCircleClockwise ||
           gesture == GestureType::drawCircleCounterclockwise;
}

using PadDrawingTest = Appearance;
using TrailDrawingTest = Appearance;
using RingDrawingTest = Appearance;
using FingerDrawingTest = Appearance;
using DrawGestureDemoTest = Appearance;

TEST_F(PadDrawingTest, IsCentredInTheViewAndAsLargeAsItsAspectRatioAllows) {
    struct Row {
        const char* name;
        QSizeF view;
        QRectF pad;
    };
    const Row rows[] = {
        {"wide", {400, 130}, {105.75, 0, 188.5, 130}},
        {"tall", {145, 400}, {0, 150, 145, 100}},
        {"of the pad's own shape", {290, 200}, {0, 0, 290, 200}},
        {"the popover's", {230, 150}, {6.25, 0, 217.5, 150}},
        {"none", {0, 0}, {0, 0, 0, 0}},
    };
    for (const Row& row : rows) {
        const QRectF pad = padIn(row.view);
        EXPECT_NEAR(pad.x(), row.pad.x(), 1e-9) << row.name;
        EXPECT_NEAR(pad.y(), row.pad.y(), 1e-9) << row.name;
        EXPECT_NEAR(pad.width(), row.pad.width(), 1e-9) << row.name;
        EXPECT_NEAR(pad.height(), row.pad.height(), 1e-9) << row.name;
    }
}

TEST_F(PadDrawingTest, OutlineLiesInsideThePadInWideAndTallViewsAtEveryScaleFactor) {
    for (const QSizeF size : {QSizeF(400, 130), QSizeF(145, 400)}) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const QImage image = painted(GestureType::twoFingerTap, 0, {size, ratio});
            const QRectF pad = padIn(size);
            const double expected = 1.5 * 0.7;
            const QPointF middle = pad.center();
            const QPointF across(5, 0);
            const QPointF down(0, 5);
            const QPointF left(pad.left(), middle.y());
            const QPointF right(pad.right(), middle.y());
            const QPointF top(middle.x(), pad.top());
            const QPointF bottom(middle.x(), pad.bottom());
            EXPECT_NEAR(inkBetween(image, left, left + across), expected, 0.3) << ratio;
            EXPECT_NEAR(inkBetween(image, right - across, right), expected, 0.3) << ratio;
            EXPECT_NEAR(inkBetween(image, top, top + down), expected, 0.02) << ratio;
            EXPECT_NEAR(inkBetween(image, bottom - down, bottom), expected, 0.02) << ratio;
        }
    }
}

TEST_F(PadDrawingTest, IsEmptyBeforeTheGestureStarts) {
    const View view = {{400, 130}};
    for (const GestureType gesture : allGestureTypes) {
        const QImage image = painted(gesture, 0, view);
        const QRectF pad = padIn(view.size);
        if (!isCircle(gesture)) { // the trail of a circle begins as a dot
            EXPECT_EQ(inkWithin(image, pad.adjusted(10, 10, -10, -10)), 0) << rawValue(gesture);
        }
        EXPECT_EQ(inkWithin(image, {0, 0, 105, 130}), 0) << rawValue(gesture);
        EXPECT_EQ(inkWithin(image, {295, 0, 105, 130}), 0) << rawValue(gesture);
    }
}

TEST_F(PadDrawingTest, HasRoundedCorners) {
    const QImage image = painted(GestureType::twoFingerTap, 0, {{1'450, 1'000}});
    constexpr double radius = 140;
    constexpr double apex = radius * 0.2929;
    EXPECT_EQ(opacityAt(image, {apex - 3, apex - 3}), 0);
    EXPECT_NEAR(opacityAt(image, {apex + 0.5, apex + 0.5}), 0.7, 0.02);
    EXPECT_EQ(opacityAt(image, {radius, 0.5}), 0); // the outline still curves here
    EXPECT_GT(opacityAt(image, {1.45 * radius, 0.5}), 0.44);
}

// Measures the lowest point of a complete circle, which is far from the finger: the circle starts
// and ends at the top.
TEST_F(TrailDrawingTest, IsTwoPointsWideAndHalfOpaque) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const View view = {{290, 200}, ratio};
        const QImage image = painted(GestureType::drawCircle, 2.06, view);
        const QPointF lowest = on(padIn(view.size), {0.5, 0.8});
        EXPECT_NEAR(inkBetween(image, lowest - QPointF(0, 6), lowest + QPointF(0, 6)), 2 * 0.5,
                    0.05)
            << ratio;
    }
}

TEST_F(TrailDrawingTest, SwipeTrailRunsFromItsStartToTheFingerWithRoundCaps) {
    const View view = {{290, 200}, 4};
    const QImage image = painted(GestureType::twoFingerSwipeRight, 2, view); // the finger has faded
    const QRectF pad = padIn(view.size);
    const QPointF start = on(pad, {0.5 - 0.17 + 0.055, 0.4945});
    const QPointF end = on(pad, {0.5 + 0.17 + 0.055, 0.4945});
    EXPECT_NEAR(opacityAt(image, start + QPointF(0.1, 0)), 0.5, 0.01);
    EXPECT_NEAR(opacityAt(image, (start + end) / 2), 0.5, 0.01);
    EXPECT_NEAR(opacityAt(image, end + QPointF(0.6, 0)), 0.5, 0.01); // inside a round cap
    EXPECT_EQ(opacityAt(image, end + QPointF(1.3, 0)), 0);           // outside a round cap
    EXPECT_LT(opacityAt(image, end + QPointF(0.85, 0.85)), 0.02);    // inside a square cap only
    EXPECT_EQ(opacityAt(image, start - QPointF(1.3, 0)), 0);
}

TEST_F(TrailDrawingTest, IsInvisibleBeforeTheFingersMove) {
    const View view = {{290, 200}};
    for (const GestureType gesture :
         {GestureType::threeFingerSwipeUp, GestureType::edgeSwipeFromTop}) {
        const QImage image = painted(gesture, 0.05, view);
        EXPECT_EQ(inkWithin(image, padIn(view.size).adjusted(10, 10, -10, -10)), 0);
    }
}

TEST_F(TrailDrawingTest, CircleTrailIsADotUntilTheFingerMoves) {
    for (const GestureType gesture : allGestureTypes) {
        if (!isCircle(gesture)) {
            continue;
        }
        for (const double ratio : {1.0, 2.0, 4.0}) {
            const View view = {{290, 200}, ratio};
            const QImage image = painted(gesture, 0.1, view); // before the finger appears
            const QPointF top = on(padIn(view.size), {0.5, 0.2});
            const QPointF reach(4, 4);
            constexpr double dot = std::numbers::pi * 1 * 1; // square points
            const double ink = inkWithin(image, {top - reach, top + reach}) / (ratio * ratio);
            EXPECT_NEAR(ink, dot * 0.5, 0.15) << ratio;
            EXPECT_EQ(inkWithin(image, {top + QPointF(-2, 3), top + QPointF(2, 10)}), 0) << ratio;
        }
    }
}

// Halfway through the ripple, the ring's radius is 0.26 of the pad's height and its opacity 0.4.
TEST_F(RingDrawingTest, ClickRingHasTheExpectedRadiusAndIsTwoPointsWide) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const View view = {{400, 200}, ratio};
        const QImage image = painted(GestureType::twoFingerClick, 1.4, view);
        const QPointF top = on(padIn(view.size), {0.5, 0.5}) - QPointF(0, 0.26 * 200);
        EXPECT_NEAR(inkBetween(image, top - QPointF(0, 6), top + QPointF(0, 6)), 2 * 0.4, 0.03);
        const QPointF right = on(padIn(view.size), {0.5, 0.5}) + QPointF(0.26 * 200, 0);
        EXPECT_NEAR(inkBetween(image, right - QPointF(6, 0), right + QPointF(6, 0)), 2 * 0.4, 0.03);
    }
}

TEST_F(RingDrawingTest, IsNotDrawnWhenAlmostTransparent) {
    const View view = {{290, 200}};
    const auto inkOfRing = [&](double t) {
        const Ring ring = frame(GestureType::twoFingerClick, t).ring.value();
        const QPointF top = on(padIn(view.size), ring.center) - QPointF(0, ring.radius * 200);
        return inkBetween(painted(GestureType::twoFingerClick, t, view), top - QPointF(0, 6),
                          top + QPointF(0, 6));
    };
    EXPECT_NEAR(inkOfRing(1.74), 2 * 0.01142, 0.01); // opacity 0.8 · (0.01 / 0.7)
    EXPECT_EQ(inkOfRing(1.745), 0);                  // opacity 0.0057
}

TEST_F(FingerDrawingTest, IsAFilledCircleInThePrimaryColor) {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::shared().pin(scheme);
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const View view = {{400, 200}, ratio};
            const QImage image = painted(GestureType::twoFingerTap, 1.2, view);
            const QPointF finger = on(padIn(view.size), {0.42, 0.4945});
            const QColor color = image.pixelColor((finger * ratio).toPoint());
            const QColor primary = Theme::shared().color(Role::primary);
            EXPECT_NEAR(color.alphaF(), 0.85, 0.01);
            EXPECT_NEAR(color.red(), primary.red(), 2);
            EXPECT_NEAR(color.green(), primary.green(), 2);
            EXPECT_NEAR(color.blue(), primary.blue(), 2);
            constexpr double radius = 0.075 * 200;
            for (const QPointF out :
                 {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
                EXPECT_NEAR(opacityAt(image, finger + out * (radius - 1.5)), 0.85, 0.01);
                EXPECT_EQ(opacityAt(image, finger + out * (radius + 1.5)), 0);
            }
        }
    }
}

TEST_F(FingerDrawingTest, RadiusIsProportionalToTheFingersScale) {
    const View view = {{400, 200}};
    const QImage pressed = painted(GestureType::twoFingerClick, 1.3, view);
    const QPointF finger = on(padIn(view.size), {0.42, 0.4945});
    constexpr double radius = 0.72 * 0.075 * 200;
    EXPECT_NEAR(opacityAt(pressed, finger - QPointF(radius - 1.5, 0)), 0.85, 0.01);
    EXPECT_EQ(opacityAt(pressed, finger - QPointF(radius + 1.5, 0)), 0);
}

TEST_F(FingerDrawingTest, FadesInAndIsNotDrawnWhileAlmostTransparent) {
    const View view = {{290, 200}};
    const QPointF top =
        on(padIn(view.size), {0.5, 0.2}) + QPointF(8, 0); // outside the dot of the trail
    const auto opacityOfFinger = [&](double t) {
        return opacityAt(painted(GestureType::drawCircle, t, view), top);
    };
    EXPECT_NEAR(opacityOfFinger(0.24), 0.5 * 0.85, 0.01);
    EXPECT_NEAR(opacityOfFinger(0.1613), 0.0113 * 0.85, 0.005);
    EXPECT_GT(opacityOfFinger(0.1613), 0);
    EXPECT_EQ(opacityOfFinger(0.16), 0); // opacity 0.0089
}

TEST_F(DrawGestureDemoTest, UsesThemeColors) {
    const View view = {{400, 200}, 2};
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::shared().pin(scheme);
        const QImage image = painted(GestureType::drawCircle, 2.06, view);
        const QColor secondary = Theme::shared().color(Role::secondary);
        const QColor trail = image.pixelColor(
            (on(padIn(view.size), {0.5, 0.8}) * image.devicePixelRatio()).toPoint());
        EXPECT_NEAR(trail.red(), secondary.red(), 3);
        EXPECT_NEAR(trail.blue(), secondary.blue(), 3);
    }
}

TEST_F(DrawGestureDemoTest, RestoresThePainterState) {
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    const QPen pen(Qt::red, 3);
    painter.setPen(pen);
    painter.setBrush(Qt::green);
    const QPainter::RenderHints hints = painter.renderHints();
    draw(GestureType::twoFingerClick, 1.3, painter, QSizeF(100, 100));
    EXPECT_EQ(painter.pen(), pen);
    EXPECT_EQ(painter.brush(), QBrush(Qt::green));
    EXPECT_EQ(painter.renderHints(), hints);
}

TEST_F(DrawGestureDemoTest, DrawsNothingForAnEmptySize) {
    for (const QSizeF size : {QSizeF(0, 0), QSizeF(50, 0), QSizeF(0, 50), QSizeF(-1, 20)}) {
        QImage image(50, 50, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        draw(GestureType::fiveFingerTap, 1.2, painter, size);
        EXPECT_EQ(inkWithin(image, {0, 0, 50, 50}), 0);
    }
}

} // namespace

} // namespace glidemap::demo
