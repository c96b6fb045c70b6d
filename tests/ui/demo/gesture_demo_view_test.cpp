#include "kit/qt_waiting.h"
#include "ui/demo/draw_gesture_demo.h"
#include "ui/demo/gesture_demo.h"
#include "ui/demo/gesture_demo_view.h"
#include "ui/demo/still_moment.h"
#include "ui/theme/text.h"
#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>
#include <vector>

namespace glidemap {

namespace {

constexpr GestureType gesture = GestureType::threeFingerSwipeRight;

// Records the times of a widget's paint events, in milliseconds since construction.
class Paints : public QObject {
public:
    explicit Paints(QWidget& widget) {
        since.start();
        widget.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            times.push_back(static_cast<double>(since.nsecsElapsed()) / 1e6);
        }
        return false;
    }

    bool become(std::size_t count) const {
        return test::waitFor([&] { return times.size() >= count; });
    }

    std::vector<double> times;

private:
    QElapsedTimer since;
};

// Waits for eight times the minimum duration of a frame. A running view draws several frames in
// this time.
void waitForSeveralFrames() {
    int ticks = 0;
    QTimer ticking;
    QObject::connect(&ticking, &QTimer::timeout, &ticking, [&] { ++ticks; });
    ticking.start(std::chrono::milliseconds(25));
    ASSERT_TRUE(test::waitFor([&] { return ticks >= 8; }));
}

QTimer& timerOf(const GestureDemoView& view) {
    return *view.findChild<QTimer*>();
}

QImage drawnByItself(GestureType shown, double t, QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    demo::draw(shown, t, painter, size);
    return image;
}

QImage rendered(GestureDemoView& view) {
    QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    view.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

class GestureDemoViewTest : public testing::Test {
protected:
    GestureDemoViewTest() {
        Theme::shared().pin(ColorScheme::light);
        Theme::shared().pinReducedMotion(false);
    }
    GestureDemoViewTest(const GestureDemoViewTest&) = delete;
    GestureDemoViewTest& operator=(const GestureDemoViewTest&) = delete;
    ~GestureDemoViewTest() override {
        Theme::shared().pin({});
        Theme::shared().pinReducedMotion({});
    }
};

TEST_F(GestureDemoViewTest, KeepsPaintingWhileVisible) {
    GestureDemoView view(gesture);
    const Paints paints(view);
    view.show();
    EXPECT_TRUE(paints.become(10));
    EXPECT_TRUE(timerOf(view).isActive());
}

TEST_F(GestureDemoViewTest, PaintsAtMostFortyTimesASecond) {
    GestureDemoView view(gesture);
    const Paints paints(view);
    view.show();
    ASSERT_TRUE(paints.become(25));
    EXPECT_GE(timerOf(view).intervalAsDuration(), std::chrono::milliseconds(25));
    EXPECT_EQ(timerOf(view).timerType(), Qt::PreciseTimer);
    EXPECT_TRUE(timerOf(view).isSingleShot());
    // The first paint events are caused by showing the window.
    for (std::size_t index = 5; index < paints.times.size(); ++index) {
        EXPECT_GE(paints.times[index] - paints.times[index - 1], 24.9) << index;
    }
}

TEST_F(GestureDemoViewTest, HasNoTimerBeforeItIsShown) {
    const GestureDemoView view(gesture);
    EXPECT_FALSE(timerOf(view).isActive());
}

TEST_F(GestureDemoViewTest, StopsWhenHiddenAndResumesWhenShown) {
    GestureDemoView view(gesture);
    Paints paints(view);
    view.show();
    ASSERT_TRUE(paints.become(3));
    view.hide();
    EXPECT_FALSE(timerOf(view).isActive());
    paints.times.clear();
    waitForSeveralFrames();
    EXPECT_EQ(paints.times.size(), 0U);
    EXPECT_FALSE(timerOf(view).isActive());

    view.show();
    EXPECT_TRUE(paints.become(3));
}

TEST_F(GestureDemoViewTest, StopsWhenTheWindowIsHidden) {
    QWidget window;
    QVBoxLayout layout(&window);
    auto* const view = new GestureDemoView(gesture);
    layout.addWidget(view);
    Paints paints(*view);
    window.resize(300, 200);
    window.show();
    ASSERT_TRUE(paints.become(3));
    window.close();
    EXPECT_FALSE(timerOf(*view).isActive());
    paints.times.clear();
    waitForSeveralFrames();
    EXPECT_EQ(paints.times.size(), 0U);
}

TEST_F(GestureDemoViewTest, StopsInAMinimisedWindowAndResumesWhenRestored) {
    GestureDemoView view(gesture);
    Paints paints(view);
    view.show();
    ASSERT_TRUE(paints.become(3));
    view.showMinimized();
    EXPECT_TRUE(test::waitFor([&] { return !timerOf(view).isActive(); }));
    waitForSeveralFrames();
    paints.times.clear();
    waitForSeveralFrames();
    EXPECT_EQ(paints.times.size(), 0U);
    EXPECT_FALSE(timerOf(view).isActive());

    view.showNormal();
    EXPECT_TRUE(paints.become(3));
}

// A view is fully clipped if it is scrolled out of view, for example.
TEST_F(GestureDemoViewTest, StopsWhenFullyClippedAndResumesWhenPartlyVisible) {
    QWidget window;
    window.resize(300, 200);
    GestureDemoView view(gesture, &window);
    view.resize(230, 150);
    Paints paints(view);
    window.show();
    ASSERT_TRUE(paints.become(3));
    view.move(1'000, 0);
    waitForSeveralFrames();
    EXPECT_FALSE(timerOf(view).isActive());
    paints.times.clear();
    waitForSeveralFrames();
    EXPECT_EQ(paints.times.size(), 0U);

    view.move(0, 0);
    EXPECT_TRUE(paints.become(3));
}

TEST_F(GestureDemoViewTest, RenderingIntoAnImageStartsNoTimer) {
    GestureDemoView view(gesture);
    view.resize(230, 150);
    EXPECT_FALSE(view.grab().isNull());
    EXPECT_FALSE(timerOf(view).isActive());
}

TEST_F(GestureDemoViewTest, RepeatsEvery2600MillisecondsOfTheClock) {
    struct Row {
        const char* name;
        double now;
        double t;
    };
    const Row rows[] = {
        {"the reference date", 0, 0},
        {"in the first loop", 1.25, 1.25},
        {"at the end of the first loop", 2.59, 2.59},
        {"as the second begins", 2.6, 0},
        {"a thousand loops on", 2'600 + 1.5, 1.5},
        {"before the reference date", -1, 1.6},
    };
    for (const Row& row : rows) {
        GestureDemoView view(gesture, nullptr, [&] { return row.now; });
        view.resize(230, 150);
        EXPECT_EQ(rendered(view), drawnByItself(gesture, row.t, {230, 150})) << row.name;
    }
}

TEST_F(GestureDemoViewTest, RunsInPhaseWithOtherViews) {
    double now = 900.3;
    GestureDemoView one(gesture, nullptr, [&] { return now; });
    now += 1;
    GestureDemoView other(gesture, nullptr, [&] { return now; });
    one.resize(230, 150);
    other.resize(230, 150);
    EXPECT_EQ(rendered(one), rendered(other));
}

TEST_F(GestureDemoViewTest, ReferenceDateIsTheFirstOfJanuary2001) {
    using namespace std::chrono;
    const auto sinceTheEpoch = [] {
        return duration<double>(system_clock::now().time_since_epoch()).count();
    };
    const double before = sinceTheEpoch();
    const double counted = GestureDemoView::secondsSinceReferenceDate();
    const double after = sinceTheEpoch();
    EXPECT_GE(counted, before - 978'307'200 - 1e-3);
    EXPECT_LE(counted, after - 978'307'200 + 1e-3);
}

TEST_F(GestureDemoViewTest, SetGestureTakesEffectImmediately) {
    GestureDemoView view(gesture, nullptr, [] { return 1.2; });
    view.resize(230, 150);
    view.setGesture(GestureType::fiveFingerTap);
    EXPECT_EQ(rendered(view), drawnByItself(GestureType::fiveFingerTap, 1.2, {230, 150}));
}

TEST_F(GestureDemoViewTest, ShowsAStillFrameIfMotionIsReduced) {
    Theme::shared().pinReducedMotion(true);
    GestureDemoView view(gesture, nullptr, [] { return 0.1; });
    view.resize(230, 150);
    Paints paints(view);
    view.show();
    ASSERT_TRUE(paints.become(1));
    EXPECT_FALSE(timerOf(view).isActive());
    waitForSeveralFrames();
    EXPECT_FALSE(timerOf(view).isActive());
    EXPECT_EQ(rendered(view), drawnByItself(gesture, demo::stillMoment(gesture), {230, 150}));

    view.setGesture(GestureType::pinchIn);
    EXPECT_EQ(rendered(view), drawnByItself(GestureType::pinchIn,
                                            demo::stillMoment(GestureType::pinchIn), {230, 150}));
}

TEST_F(GestureDemoViewTest, FollowsChangesToReducedMotion) {
    GestureDemoView view(gesture);
    Paints paints(view);
    view.show();
    ASSERT_TRUE(paints.become(3));
    Theme::shared().pinReducedMotion(true);
    EXPECT_TRUE(test::waitFor([&] { return !timerOf(view).isActive(); }));
    paints.times.clear();
    Theme::shared().pinReducedMotion(false);
    EXPECT_TRUE(paints.become(3));
}

TEST_F(GestureDemoViewTest, RepaintsWhenTheThemeChanges) {
    Theme::shared().pinReducedMotion(true); // prevents other paint events
    GestureDemoView view(gesture);
    Paints paints(view);
    view.show();
    ASSERT_TRUE(paints.become(1));
    waitForSeveralFrames();
    paints.times.clear();
    Theme::shared().pin(ColorScheme::dark);
    EXPECT_TRUE(paints.become(1));
}

TEST_F(GestureDemoViewTest, TabSkipsTheView) {
    const GestureDemoView view(gesture);
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
}

TEST_F(GestureDemoViewTest, HasTheAnimationRoleAndTheAccessibleNameSetByTheOwner) {
    GestureDemoView view(gesture);
    view.setAccessibleName(toQt(displayName(gesture)));
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Animation);
    EXPECT_EQ(accessible->text(QAccessible::Name), toQt(displayName(gesture)));

    QPushButton other("Other");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&other)->role(), QAccessible::Button);
}

} // namespace

} // namespace glidemap
