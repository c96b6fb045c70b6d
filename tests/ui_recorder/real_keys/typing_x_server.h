// An X server with a window manager, typed on through the server's own test extension.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a server that is not ready in time is a failure of the test.
#pragma once

#include "linux_windows/x11/x_server.h"
#include "typing_desktop.h"

struct xcb_connection_t;

namespace glidemap::desktops {

class TypingXServer : public TypingDesktop {
public:
    // Empty, or why there can be none here.
    static std::string whyNot() { return XServer::whyNot(); }

    TypingXServer();
    ~TypingXServer() override;

    Environment environment() const override;
    void key(std::uint16_t kernelCode, bool down) override;

private:
    XServer server;
    xcb_connection_t* connection;
};

} // namespace glidemap::desktops
