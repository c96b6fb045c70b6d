#include "ui/controls/switch.h"

#include "ui/theme/style/paint.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

namespace glidemap {

namespace {

constexpr int trackWidth = 36;
constexpr int trackHeight = 20;
constexpr double knobInset = 2;
constexpr double stretch = 3; // added to the knob's width while the switch is pressed
constexpr int textGap = 8;
constexpr int textFlags = Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextHideMnemonic;

QColor mixed(const QColor& from, const QColor& to, double part) {
    const auto between = [part](int a, int b) {
        return qRound(a + (b - a) * part);
    };
    return {between(from.red(), to.red()), between(from.green(), to.green()),
            between(from.blue(), to.blue()), between(from.alpha(), to.alpha())};
}

} // namespace

Switch::Switch(QWidget* parent) : QCheckBox(parent) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    toTheme = Theme::shared().changes().subscribe({}, [this] {
        knob.jumpTo(isChecked() ? 1 : 0);
        updateGeometry();
    });
}

QSize Switch::sizeHint() const {
    const QSize words = fontMetrics().size(textFlags, text());
    const int label = text().isEmpty() ? 0 : words.width() + 1 + textGap;
    const int height = std::max(trackHeight, text().isEmpty() ? 0 : words.height());
    return {trackWidth + label + 2 * style::ringMargin, height + 2 * style::ringMargin};
}

// Qt calls this function when the program, not the user, changes the state.
void Switch::checkStateSet() {
    QCheckBox::checkStateSet();
    knob.glideTo(isChecked() ? 1 : 0);
}

void Switch::nextCheckState() {
    QCheckBox::nextCheckState();
    knob.glideTo(isChecked() ? 1 : 0);
}

QRectF Switch::trackRect() const {
    const qreal x = isRightToLeft() ? style::ringMargin : width() - style::ringMargin - trackWidth;
    return {x, (height() - trackHeight) / 2.0, trackWidth, trackHeight};
}

void Switch::drawTrack(QPainter& painter, const QRectF& track) const {
    const double radius = track.height() / 2;
    const QColor off = style::color(Role::track);
    const QColor on = style::color(Role::accentGround);
    painter.setOpacity(isEnabled() ? 1 : 0.5);
    style::fillRounded(painter, track, radius, mixed(off, on, knob.value()));
    // While the switch is off, its track and the background have similar colours, so the track
    // needs an edge.
    style::strokeRounded(painter, track, radius, style::hairline(painter),
                         mixed(style::color(Role::tertiary), on, knob.value()));
    if (isEnabled() && underMouse()) {
        style::fillRounded(painter, track, radius, style::color(Role::hover));
    }
    painter.setOpacity(1);
}

void Switch::drawKnob(QPainter& painter, const QRectF& track) const {
    const double size = track.height() - 2 * knobInset;
    const double length = size + (isDown() ? stretch : 0);
    const double travel = track.width() - 2 * knobInset - length;
    const double along = layoutDirection() == Qt::LeftToRight ? knob.value() : 1 - knob.value();
    const QRectF shape(track.left() + knobInset + along * travel, track.top() + knobInset, length,
                       size);
    painter.setOpacity(isEnabled() ? 1 : 0.7);
    style::fillRounded(painter, shape.translated(0, 1), size / 2, QColor(0, 0, 0, 50));
    style::fillRounded(painter, shape, size / 2, style::color(Role::knob));
    if (!Theme::shared().isDark()) { // a white knob needs an edge on a light track
        style::strokeRounded(painter, shape, size / 2, style::hairline(painter),
                             QColor(0, 0, 0, 45));
    }
    painter.setOpacity(1);
}

void Switch::drawText(QPainter& painter) const {
    const int taken = trackWidth + style::ringMargin + textGap;
    const QRect room = isRightToLeft() ? rect().adjusted(taken, 0, -style::ringMargin, 0)
                                       : rect().adjusted(style::ringMargin, 0, -taken, 0);
    painter.setFont(font());
    painter.setPen(isEnabled() ? palette().color(QPalette::WindowText)
                               : style::color(Role::tertiary));
    painter.drawText(room, textFlags | Qt::AlignLeft, text());
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRectF track = style::snapped(painter, trackRect());
    drawTrack(painter, track);
    drawKnob(painter, track);
    if (!text().isEmpty()) {
        drawText(painter);
    }
    if (style::showsFocus(option)) {
        style::drawFocusRing(painter, track, track.height() / 2);
    }
}

} // namespace glidemap
