#include "ui/demo/gesture_demo_view.h"

#include "ui/controls/popover.h"
#include "ui/demo/draw_gesture_demo.h"
#include "ui/demo/frame_pace.h"
#include "ui/demo/gesture_demo.h"
#include "ui/demo/still_moment.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <QScreen>
#include <chrono>
#include <cmath>

namespace glidemap {

namespace {

// Returns the time until the view must draw the next frame of the demonstration.
std::chrono::milliseconds untilNextFrameOf(const QWidget& view) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return demo::untilNextFrame(now, demo::framePeriod(view.screen()->refreshRate()));
}

// Exposes a demonstration to assistive technology as an animation instead of an unnamed pane. Qt
// calls this factory for every widget class; for other classes it returns nullptr, and Qt tries the
// next factory.
QAccessibleInterface* accessibleDemo(const QString& /*className*/, QObject* object) {
    auto* const view = dynamic_cast<GestureDemoView*>(object);
    return view == nullptr ? nullptr : new QAccessibleWidget(view, QAccessible::Animation);
}

} // namespace

GestureDemoView::GestureDemoView(GestureType gesture, QWidget* parent, Clock now)
    : QWidget(parent), gesture(gesture), now(std::move(now)), untilNextFrame(this) {
    QAccessible::installFactory(accessibleDemo); // idempotent
    setFocusPolicy(Qt::NoFocus);
    untilNextFrame.setTimerType(Qt::PreciseTimer);
    untilNextFrame.setSingleShot(true);
    connect(&untilNextFrame, &QTimer::timeout, this, [this] { update(); });
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
}

void GestureDemoView::setGesture(GestureType shown) {
    gesture = shown;
    update();
}

double GestureDemoView::secondsSinceReferenceDate() {
    using namespace std::chrono;
    constexpr sys_days reference = year{2001} / January / 1;
    return duration<double>(system_clock::now() - reference).count();
}

void GestureDemoView::paintEvent(QPaintEvent* /*event*/) {
    if (Theme::shared().reducesMotion() || !canBeSeen()) {
        untilNextFrame.stop();
    } else {
        untilNextFrame.start(
            // The timer starts before drawing, so that the drawing time is part of the interval.
            untilNextFrameOf(*this));
    }
    QPainter painter(this);
    demo::draw(gesture, moment(), painter, size());
}

void GestureDemoView::showEvent(QShowEvent* /*event*/) {
    shownIn = window()->windowHandle();
    if (shownIn) {
        shownIn->installEventFilter(this);
    }
}

void GestureDemoView::hideEvent(QHideEvent* /*event*/) {
    untilNextFrame.stop();
    if (shownIn) {
        shownIn->removeEventFilter(this);
    }
}

// Qt does not always send a paint event when a window is restored or uncovered, so this filter
// requests one.
bool GestureDemoView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose || event->type() == QEvent::WindowStateChange) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}

double GestureDemoView::moment() const {
    if (Theme::shared().reducesMotion()) {
        return demo::stillMoment(gesture);
    }
    const double sinceTheLast = std::fmod(now(), demo::loopDuration);
    return sinceTheLast < 0 ? sinceTheLast + demo::loopDuration : sinceTheLast;
}

// Returns false for an invisible widget, because rendering such a widget into an image must not
// start the animation.
bool GestureDemoView::canBeSeen() const {
    const QWindow* const handle = window()->windowHandle();
    return isVisible() && !window()->isMinimized() && handle != nullptr && handle->isExposed() &&
           !Popover::covers(*this);
}

} // namespace glidemap
