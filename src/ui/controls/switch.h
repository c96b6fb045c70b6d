// A switch: a knob that slides between off and on. For users and for assistive technology it
// behaves as a check box. The text precedes the track: it is on the left, or on the right in a
// right-to-left layout.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "ui/controls/slide.h"
#include "ui/theme/theme.h"

#include <QCheckBox>

namespace glidemap {

class Switch : public QCheckBox {
public:
    explicit Switch(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // The knob's position, from 0 (off) to 1 (on).
    double knobPosition() const { return knob.value(); }

protected:
    bool hitButton(const QPoint& at) const override { return rect().contains(at); }
    void paintEvent(QPaintEvent* event) override;
    void checkStateSet() override;
    void nextCheckState() override;

private:
    QRectF trackRect() const;
    void drawTrack(QPainter& painter, const QRectF& track) const;
    void drawKnob(QPainter& painter, const QRectF& track) const;
    void drawText(QPainter& painter) const;

    Slide knob{this};
    Subscription toTheme;
};

} // namespace glidemap
