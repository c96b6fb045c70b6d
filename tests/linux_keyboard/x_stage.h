// An X server without a screen, and a program with a window that has the keyboard's focus and
// writes down the keys that reach it. It can also hold keys down, as a remote desktop does for the
// person at its other end.
//
// Units:   the kernel's key codes; modifiers are the server's mask before the change.
// Thread:  one.
// Owner:   a test. Destroying it ends the server.
// Errors:  what does not come in time is a failure of the test.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace glidemap {

class XStage {
public:
    static bool isInstalled();

    // Names the server in DISPLAY.
    XStage();
    XStage(const XStage&) = delete;
    XStage& operator=(const XStage&) = delete;
    ~XStage();

    void hold(std::uint16_t kernelCode, bool down);

    // Types a key of its own and answers all that has come until it has come back, but itself:
    // "+20 while 4" is key 20 down while Control is held.
    std::vector<std::string> keysUntilNow();

    // What the server takes for held.
    std::uint32_t modifiers();

private:
    void startServer();
    void openWindow();

    pid_t server = -1;
    xcb_connection_t* connection = nullptr;
    std::uint32_t root = 0;
};

} // namespace glidemap
