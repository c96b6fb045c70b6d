// A real X server on the kernel's input devices, with a window manager.
//
// Thread:  one.
// Owner:   a test. The destructor ends the server and the window manager.
// Errors:  a desktop that does not start fails the test, and isRunning() is false.
#pragma once

#include "process.h"

#include <memory>
#include <string>

namespace glidemap::test {

class XDesktop {
public:
    // Returns whether the programs are installed.
    static bool isInstalled();

    // Starts the desktop and waits until the window manager is running. Sets DISPLAY for programs
    // that are started later.
    XDesktop();
    XDesktop(const XDesktop&) = delete;
    XDesktop& operator=(const XDesktop&) = delete;
    ~XDesktop();

    bool isRunning() const { return running; }

    // Waits until the server has opened the device that has this node now; an earlier device may
    // have had the same node. The server may still be configuring the device, but has finished when
    // it replies to the caller's next request.
    bool waitForDevice(const std::string& node) const;

private:
    bool startServer();
    bool startWindowManager();

    std::unique_ptr<Process> server;
    std::unique_ptr<Process> windowManager;
    bool running = false;
};

} // namespace glidemap::test
