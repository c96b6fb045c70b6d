// Port: what a program is to the desktop beside its windows.
//
// Thread:  the main thread.
// Owner:   the program makes one for the delegate.
// Errors:  none: a desktop that does not let a program come forward leaves its window where it is.
#pragma once

class QWidget;

namespace glidemap {

class ApplicationShell {
public:
    ApplicationShell() = default;
    ApplicationShell(const ApplicationShell&) = delete;
    ApplicationShell& operator=(const ApplicationShell&) = delete;
    virtual ~ApplicationShell() = default;

    // No place among the programs that run, such as in a dock: only a status item.
    virtual void becomeAccessory() = 0;

    // Brings the window before those of all other programs, with the keyboard. It is shown already.
    virtual void activate(QWidget& window) = 0;

    // Gestures are on or off, from the launch on. While they are on the program must react at once, window or not.
    virtual void setGesturesOn(bool /*areOn*/) {}

    // Ends the event loop; nobody is asked.
    virtual void terminate() = 0;
};

} // namespace glidemap
