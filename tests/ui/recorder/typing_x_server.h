// An X server with a window manager. Keys are typed through the server's XTEST extension.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a server that does not start in time fails the test.
#pragma once

#include "desktops/x_server.h"
#include "typing_desktop.h"

struct xcb_connection_t;

namespace glidemap::test {

class TypingXServer : public TypingDesktop {
public:
    static constexpr const char* name = "X11";

    // Returns an empty string if the server can run, otherwise the reason.
    static std::string whyNot() { return XServer::whyNot(); }

    TypingXServer();
    ~TypingXServer() override;

    Environment environment() const override;
    void key(std::uint16_t kernelCode, bool down) override;

private:
    XServer server;
    xcb_connection_t* connection;
};

} // namespace glidemap::test
