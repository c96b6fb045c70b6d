// An X server without a screen, and a client with a focused window that records the keys it
// receives. The client can also hold keys down, as a remote desktop does.
//
// Units:   the kernel's key codes; modifiers are the server's mask before the change.
// Thread:  one.
// Owner:   a test. The destructor ends the server.
// Errors:  an event that does not arrive in time fails the test.
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

    // Sets DISPLAY to this server, and unsets the variables of a Wayland session.
    XStage();
    XStage(const XStage&) = delete;
    XStage& operator=(const XStage&) = delete;
    ~XStage();

    void hold(std::uint16_t kernelCode, bool down);

    // Types a marker key and returns all keys received before it: "+20 while 4" means that key 20
    // was pressed while Control was held.
    std::vector<std::string> takeKeys();

    // Returns the modifiers that the server considers held.
    std::uint32_t modifiers();

private:
    void startServer();
    void openWindow();

    pid_t server = -1;
    xcb_connection_t* connection = nullptr;
    std::uint32_t root = 0;
};

} // namespace glidemap
