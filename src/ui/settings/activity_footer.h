// The line at the bottom that shows what was recognised last, so that the user sees that the
// trackpad is listened to, also before there is a binding.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view, which tells it what to show.
// Errors:  none. What is too long for the window is elided, but never the gesture.
#pragma once

#include "core/lang.h"
#include "dispatch/gesture_log_entry.h"

#include <QWidget>

namespace glidemap {

class ElidedLabel;
class StyledLabel;

class ActivityFooter : public QWidget {
public:
    explicit ActivityFooter(QWidget* parent = nullptr);

    // Null stands for nothing yet.
    void display(const GestureLogEntry* newest, const Lang& lang);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showGesture(const GestureLogEntry* newest, const Lang& lang);
    void showAction(const GestureLogEntry* newest, const Lang& lang);
    void showApplication(const GestureLogEntry* newest);

    StyledLabel* gesture;
    ElidedLabel* action;
    ElidedLabel* application;
};

} // namespace glidemap
