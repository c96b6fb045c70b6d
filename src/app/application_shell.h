// Port: hides the program from docks, brings its windows to the front, keeps the program
// responsive, and ends it.
//
// Thread:  the main thread.
// Owner:   the program creates one for the delegate.
// Errors:  none. If the desktop does not allow a program to raise its windows, activate() leaves
//          the window where it is.
#pragma once

class QWidget;

namespace glidemap {

class ApplicationShell {
public:
    ApplicationShell() = default;
    ApplicationShell(const ApplicationShell&) = delete;
    ApplicationShell& operator=(const ApplicationShell&) = delete;
    virtual ~ApplicationShell() = default;

    // Removes the program from docks and application switchers, because users reach it through its
    // status item.
    virtual void becomeAccessory() = 0;

    // Raises a visible window above the windows of all other programs, and gives it the keyboard
    // focus.
    virtual void activate(QWidget& window) = 0;

    // Called on launch, and when gestures are switched on or off. While gestures are on, the
    // program must react without delay, even if no window is open.
    virtual void setGesturesOn(bool /*areOn*/) {}

    // Ends the event loop without asking the user for confirmation.
    virtual void terminate() = 0;
};

} // namespace glidemap
