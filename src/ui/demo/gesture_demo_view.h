// Shows how a gesture is made, in a loop without end: 40 frames a second while it can be seen, none
// while it cannot, and one still frame where the user wants nothing to move.
//
// The loop follows the clock, so that all views show the same moment.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "core/gesture_type.h"
#include "ui/theme/theme.h"

#include <QTimer>
#include <QWidget>

namespace glidemap {

class GestureDemoView : public QWidget {
public:
    explicit GestureDemoView(GestureType shown, QWidget* parent = nullptr);

    void setGesture(GestureType shown);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    GestureType gesture;
    Subscription toTheme;
};

} // namespace glidemap
