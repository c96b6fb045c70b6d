#include "platform/linux/shell/x11_activation.h"

#include "platform/linux/desktop/launch_messages.h"
#include "platform/linux/desktop/x11.h"

#include <xcb/xcb.h>

#include <charconv>
#include <cstring>

namespace glidemap {

namespace {

xcb_window_t rootWindow(xcb_connection_t* connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_client_message_event_t message(xcb_window_t window, xcb_atom_t type, std::uint8_t format) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = format;
    event.window = window;
    event.type = type;
    return event;
}

void sendToRoot(xcb_connection_t* connection, const xcb_client_message_event_t& event,
                std::uint32_t mask) {
    xcb_send_event(connection, 0, rootWindow(connection), mask,
                   reinterpret_cast<const char*>(&event));
}

// Sends the request with the source indication of a pager (2), because window managers may refuse
// requests from normal applications.
void askWindowManager(xcb_connection_t* connection, xcb_window_t window, std::uint32_t time) {
    constexpr std::uint32_t byTheUser = 2;
    auto event = message(window, x11Atom(connection, "_NET_ACTIVE_WINDOW"), 32);
    event.data.data32[0] = byTheUser;
    event.data.data32[1] = time;
    sendToRoot(connection, event,
               XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

void notifyLauncher(xcb_connection_t* connection, xcb_window_t window, std::string_view startupID) {
    xcb_atom_t type = x11Atom(connection, "_NET_STARTUP_INFO_BEGIN");
    for (const std::string& piece : endOfLaunch(startupID)) {
        auto event = message(window, type, 8);
        std::memcpy(event.data.data8, piece.data(), piece.size());
        sendToRoot(connection, event, XCB_EVENT_MASK_PROPERTY_CHANGE);
        type = x11Atom(connection, "_NET_STARTUP_INFO");
    }
}

} // namespace

std::uint32_t timeOfLaunch(std::string_view startupID) {
    constexpr std::string_view mark = "_TIME";
    const auto found = startupID.rfind(mark);
    if (found == std::string_view::npos) {
        return 0;
    }
    const std::string_view digits = startupID.substr(found + mark.size());
    std::uint32_t time = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), time);
    return error == std::errc() && end == digits.data() + digits.size() ? time : 0;
}

std::vector<std::string> endOfLaunch(std::string_view startupID) {
    return launchMessage("remove", {{"ID", startupID}});
}

void activateOnX11(xcb_connection_t* connection, std::uint32_t window, std::string_view startupID) {
    askWindowManager(connection, window, timeOfLaunch(startupID));
    if (!startupID.empty()) {
        notifyLauncher(connection, window, startupID);
    }
    xcb_flush(connection);
}

void endLaunchOnX11(xcb_connection_t* connection, std::uint32_t window,
                    std::string_view startupID) {
    notifyLauncher(connection, window, startupID);
    xcb_flush(connection);
}

} // namespace glidemap
