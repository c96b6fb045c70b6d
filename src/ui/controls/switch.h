// A switch: a knob that slides between off and on. To assistive programs it is a check box, and it
// is set and listened to as one. Its text stands before it.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
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

    // Where the knob is on its way from off, 0, to on, 1.
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
