// The line at the bottom of the settings window, which shows the last recognised gesture. Users can
// see that the trackpad works, even before the first binding exists.
//
// GestureDispatcher adds each gesture to its list of recent gestures on the main thread, after the
// gesture's action, and announces the change. SettingsView observes the list and displays the first
// entry; while the window is hidden, it waits until the window is shown. The list omits gestures
// made while Glidemap is switched off or the session is locked, clicks that are not consumed, and
// gestures whose action reached the main thread too late (TimelyQueue).
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view, which sets the content.
// Errors:  none. Long texts are elided, except the gesture's name.
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

    // `newest` is null if no gesture has been recognised yet.
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
