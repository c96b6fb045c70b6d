// A real X server on the kernel's input devices, with a window manager: what a person's touchpad
// and keyboard talk to.
//
// Thread:  one.
// Owner:   a test. Destroying it ends the server and the window manager.
// Errors:  a desktop that does not come up is a failure of the test, and isRunning() is false.
#pragma once

#include "process.h"

#include <memory>
#include <string>

namespace glidemap::vm {

class XDesktop {
public:
    // Whether the programs are installed at all.
    static bool isInstalled();

    // Returns when the window manager has taken over. Sets DISPLAY for the programs that are
    // started from now on.
    XDesktop();
    XDesktop(const XDesktop&) = delete;
    XDesktop& operator=(const XDesktop&) = delete;
    ~XDesktop();

    bool isRunning() const { return running; }

    // Waits until the server has opened the device that is there now: an earlier one may have had
    // the same node. It has set the device up when it answers the next question.
    bool waitForDevice(const std::string& node) const;

private:
    bool startServer();
    bool startWindowManager();

    std::unique_ptr<Process> server;
    std::unique_ptr<Process> windowManager;
    bool running = false;
};

} // namespace glidemap::vm
