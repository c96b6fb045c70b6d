#include "typing_x_server.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace glidemap::test {

namespace {

constexpr int keyCodeOffset = 8;

} // namespace

TypingXServer::TypingXServer() : connection(xcb_connect(server.display().c_str(), nullptr)) {
    EXPECT_EQ(xcb_connection_has_error(connection), 0);
    server.startWindowManager();
}

TypingXServer::~TypingXServer() {
    xcb_disconnect(connection);
}

Environment TypingXServer::environment() const {
    Environment settings = server.environment();
    settings["QT_QPA_PLATFORM"] = "xcb";
    // Without an address, Qt would start a bus that outlives the test.
    settings["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nowhere";
    return settings;
}

void TypingXServer::key(std::uint16_t kernelCode, bool down) {
    xcb_test_fake_input(connection, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                        static_cast<std::uint8_t>(kernelCode + keyCodeOffset), XCB_CURRENT_TIME,
                        XCB_NONE, 0, 0, 0);
    xcb_flush(connection);
}

} // namespace glidemap::test
