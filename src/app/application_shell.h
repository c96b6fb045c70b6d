// Port: the program's presence on the desktop, apart from its windows.
//
// Thread:  the main thread.
// Owner:   the program creates one for the delegate.
// Errors:  none. If the desktop does not let a program raise itself, the window stays where it is.
#pragma once

class QWidget;

namespace glidemap {

class ApplicationShell {
public:
    ApplicationShell() = default;
    ApplicationShell(const ApplicationShell&) = delete;
    ApplicationShell& operator=(const ApplicationShell&) = delete;
    virtual ~ApplicationShell() = default;

    // Removes the program from docks and application switchers: it has only a status item.
    virtual void becomeAccessory() = 0;

    // Raises the window above those of all other programs and gives it the keyboard focus. The
    // window is already visible.
    virtual void activate(QWidget& window) = 0;

    // Called on launch, and when gestures are switched on or off. While gestures are on, the
    // program must react at once, even without a window.
    virtual void setGesturesOn(bool /*areOn*/) {}

    // Ends the event loop without asking the user.
    virtual void terminate() = 0;
};

} // namespace glidemap
