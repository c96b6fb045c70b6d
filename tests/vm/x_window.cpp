#include "x_window.h"

#include "deadline.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>

namespace glidemap::test {

namespace {

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, Freed>;

constexpr std::uint8_t sentFlag = 0x80;

template <typename Event>
XInput inputOf(XInput::Kind kind, const xcb_generic_event_t* event) {
    const auto* typed = reinterpret_cast<const Event*>(event);
    return {kind, typed->detail, typed->state};
}

std::optional<XInput> inputOf(const xcb_generic_event_t* event) {
    switch (event->response_type & ~sentFlag) {
    case XCB_KEY_PRESS:
        return inputOf<xcb_key_press_event_t>(XInput::Kind::keyDown, event);
    case XCB_KEY_RELEASE:
        return inputOf<xcb_key_release_event_t>(XInput::Kind::keyUp, event);
    case XCB_BUTTON_PRESS:
        return inputOf<xcb_button_press_event_t>(XInput::Kind::buttonDown, event);
    case XCB_BUTTON_RELEASE:
        return inputOf<xcb_button_release_event_t>(XInput::Kind::buttonUp, event);
    default:
        return std::nullopt;
    }
}

} // namespace

std::string describe(const XInput& input) {
    static const char* const names[] = {"key down ", "key up ", "button down ", "button up "};
    return names[static_cast<int>(input.kind)] + std::to_string(input.detail) + " while " +
           std::to_string(input.modifiers);
}

XWindow::XWindow(const std::string& className) : connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection) != 0) {
        ADD_FAILURE() << "cannot connect to the X server";
        return;
    }
    create(className);
    EXPECT_TRUE(waitForFocus()) << "the window did not get the focus";
}

XWindow::~XWindow() {
    xcb_disconnect(connection);
}

void XWindow::create(const std::string& className) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    root = screen->root;
    window = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                 XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                 XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 0, 0,
                      static_cast<std::uint16_t>(screen->width_in_pixels - 20),
                      static_cast<std::uint16_t>(screen->height_in_pixels - 40), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK,
                      &events);
    const std::string both = className + '\0' + className + '\0';
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(both.size()), both.data());
    xcb_map_window(connection, window);
}

// While a window manager starts, it may read a request but process it only when the next request
// arrives. So the window repeats its request until it has the focus.
bool XWindow::waitForFocus() {
    constexpr int soon = 200; // milliseconds
    const Deadline deadline;
    while (!focused && !deadline.passed() && xcb_connection_has_error(connection) == 0) {
        askForFocus();
        xcb_flush(connection);
        pollfd waited{xcb_get_file_descriptor(connection), POLLIN, 0};
        poll(&waited, 1, soon);
        readEvents();
    }
    return focused;
}

// Requests the focus as a task bar does, because a window manager that has just started does not
// focus existing windows.
void XWindow::askForFocus() {
    const char name[] = "_NET_ACTIVE_WINDOW";
    const Owned<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr)};
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom->atom;
    message.data.data32[0] = 2; // the request comes from a task bar
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

void XWindow::readEvents() {
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        if ((event->response_type & ~sentFlag) == XCB_FOCUS_IN) {
            focused = true;
        }
        if (const std::optional<XInput> input = inputOf(event.get())) {
            seen.push_back(*input);
        }
    }
}

bool XWindow::waitUntil(const std::function<bool()>& condition) {
    const Deadline deadline;
    readEvents();
    while (!condition()) {
        pollfd waited{xcb_get_file_descriptor(connection), POLLIN, 0};
        if (deadline.passed() || xcb_connection_has_error(connection) != 0) {
            return false;
        }
        poll(&waited, 1, deadline.milliseconds());
        readEvents();
    }
    return true;
}

bool XWindow::waitForInputs(std::size_t count) {
    return waitUntil([&] { return seen.size() >= count; });
}

std::pair<int, int> XWindow::pointer() const {
    const Owned<xcb_query_pointer_reply_t> reply{
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr)};
    return reply != nullptr ? std::pair<int, int>{reply->root_x, reply->root_y}
                            : std::pair<int, int>{-1, -1};
}

} // namespace glidemap::test
