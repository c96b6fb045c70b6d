#include "x_display.h"

#include "waiting.h"
#include "x_reply.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace glidemap::test {

namespace {

constexpr std::uint32_t longest = 4096; // the maximum length of a property, in 32-bit words
constexpr std::uint32_t fromTaskBar = 2;
constexpr std::uint32_t iconic = 3; // a state of WM_STATE

Program::Command serverIn(const RuntimeFolder& folder) {
    return {.words = {"Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-noreset",
                      "-nolisten", "tcp"},
            .environment = plainEnvironment(folder.path()),
            .log = folder.path() / "xvfb.log"};
}

XDisplay::WindowManager openbox(const RuntimeFolder& folder) {
    return {.words = {"openbox", "--sm-disable"}, .environment = plainEnvironment(folder.path())};
}

} // namespace

bool XDisplay::isInstalled() {
    return test::isInstalled("Xvfb") && test::isInstalled("openbox");
}

XDisplay::XDisplay(const RuntimeFolder& folder) : XDisplay(folder, openbox(folder)) {}

XDisplay::XDisplay(const RuntimeFolder& folder, WindowManager manager)
    : server(std::make_unique<Program>(serverIn(folder))),
      _name(":" + server->nextLine().value_or("")),
      _connection(xcb_connect(_name.c_str(), nullptr)) {
    if (xcb_connection_has_error(_connection) != 0) {
        ADD_FAILURE() << "no connection to the X server " << _name;
        return;
    }
    _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
    manager.environment["DISPLAY"] = _name;
    windowManager =
        std::make_unique<Program>(Program::Command{.words = std::move(manager.words),
                                                   .environment = std::move(manager.environment),
                                                   .log = folder.path() / "window-manager.log"});
    EXPECT_TRUE(waitForWindowManager()) << "the window manager never took over";
}

// A window manager announces itself long before it manages windows, and it does not focus windows
// that are already open when it starts. It may also read an event but handle it only when the next
// event arrives. So the function repeats a request until the window manager responds.
bool XDisplay::waitForWindowManager() const {
    const std::uint32_t window = createWindow({0, 0, 1, 1});
    const bool answers = waitUntil([&] {
        ask(window, "_NET_REQUEST_FRAME_EXTENTS", fromTaskBar);
        return !numbers(window, "_NET_FRAME_EXTENTS").empty();
    });
    xcb_destroy_window(_connection, window);
    xcb_flush(_connection);
    return answers;
}

XDisplay::~XDisplay() {
    xcb_disconnect(_connection);
}

std::uint32_t XDisplay::atom(const std::string& text) const {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        _connection,
        xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(text.size()), text.c_str()),
        nullptr));
    return reply != nullptr ? reply->atom : 0;
}

std::string XDisplay::property(std::uint32_t window, const char* property) const {
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        _connection,
        xcb_get_property(_connection, 0, window, atom(property), XCB_ATOM_ANY, 0, longest),
        nullptr));
    if (reply == nullptr) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> XDisplay::numbers(std::uint32_t window, const char* name) const {
    const std::string bytes = property(window, name);
    std::vector<std::uint32_t> values(bytes.size() / sizeof(std::uint32_t));
    std::memcpy(values.data(), bytes.data(), values.size() * sizeof(std::uint32_t));
    return values;
}

Rectangle XDisplay::contentOf(std::uint32_t window) const {
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(_connection, xcb_get_geometry(_connection, window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        _connection, xcb_translate_coordinates(_connection, window, _root, 0, 0), nullptr));
    if (size == nullptr || place == nullptr) {
        return {};
    }
    return {place->dst_x, place->dst_y, size->width, size->height};
}

std::vector<ManagedWindow> XDisplay::windows() const {
    std::vector<ManagedWindow> all;
    for (const std::uint32_t id : numbers(_root, "_NET_CLIENT_LIST")) {
        const std::vector<std::uint32_t> process = numbers(id, "_NET_WM_PID");
        const std::string names = property(id, "WM_CLASS"); // two null-terminated texts
        all.push_back({id, property(id, "_NET_WM_NAME"),
                       names.substr(std::min(names.find('\0') + 1, names.size())).c_str(),
                       process.empty() ? 0 : process.front(), contentOf(id)});
    }
    return all;
}

std::optional<ManagedWindow> XDisplay::windowTitled(const std::string& title) const {
    const std::vector<ManagedWindow> all = windows();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.title == title; });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

std::optional<std::uint32_t> XDisplay::activeWindow() const {
    const std::vector<std::uint32_t> active = numbers(_root, "_NET_ACTIVE_WINDOW");
    return active.empty() || active.front() == 0 ? std::nullopt : std::optional(active.front());
}

bool XDisplay::hasOwner(const std::string& selection) const {
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        _connection, xcb_get_selection_owner(_connection, atom(selection)), nullptr));
    return reply != nullptr && reply->owner != XCB_NONE;
}

bool XDisplay::hasEmbeddedWindow() const {
    return embedsBelow(_root);
}

bool XDisplay::embedsBelow(std::uint32_t window) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(_connection, xcb_query_tree(_connection, window), nullptr));
    if (tree == nullptr) {
        return false;
    }
    const xcb_window_t* const children = xcb_query_tree_children(tree.get());
    return std::any_of(
        children, children + xcb_query_tree_children_length(tree.get()),
        [this](xcb_window_t child) { return isEmbedded(child) || embedsBelow(child); });
}

bool XDisplay::isEmbedded(std::uint32_t window) const {
    return isViewable(window) && !property(window, "_XEMBED_INFO").empty();
}

bool XDisplay::isViewable(std::uint32_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        _connection, xcb_get_window_attributes(_connection, window), nullptr));
    return attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool XDisplay::isMinimized(std::uint32_t window) const {
    const std::vector<std::uint32_t> state = numbers(window, "WM_STATE");
    return !state.empty() && state.front() == iconic;
}

bool XDisplay::isOnAnotherWorkspace(std::uint32_t window) const {
    constexpr std::uint32_t everyWorkspace = 0xffffffff;
    const std::vector<std::uint32_t> workspace = numbers(window, "_NET_WM_DESKTOP");
    return !workspace.empty() && workspace.front() != everyWorkspace &&
           workspace.front() != shownWorkspace();
}

bool XDisplay::showsAllWindows() const {
    return std::ranges::all_of(numbers(_root, "_NET_CLIENT_LIST"), [this](std::uint32_t window) {
        return isViewable(window) || isMinimized(window) || isOnAnotherWorkspace(window);
    });
}

std::uint32_t XDisplay::openWindow(const Rectangle& area) const {
    const std::uint32_t window = createWindow(area);
    xcb_map_window(_connection, window);
    ask(window, "_NET_ACTIVE_WINDOW", fromTaskBar);
    return window;
}

std::uint32_t XDisplay::createWindow(const Rectangle& area) const {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data;
    const std::uint32_t window = xcb_generate_id(_connection);
    xcb_create_window(_connection, XCB_COPY_FROM_PARENT, window, _root,
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(area.width),
                      static_cast<std::uint16_t>(area.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXEL, &screen->white_pixel);
    return window;
}

// Returns once the server has delivered the request, so that the window manager reads it before any
// later request of another program.
void XDisplay::ask(std::uint32_t window, const char* message, std::uint32_t detail,
                   std::uint32_t time) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    event.data.data32[0] = detail;
    event.data.data32[1] = time;
    xcb_send_event(_connection, 0, _root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    const Reply<xcb_get_input_focus_reply_t> delivered(
        xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
}

// Returns the server's time. Appending nothing to a property causes an event that contains the
// time.
std::uint32_t XDisplay::currentTime() const {
    const std::uint32_t window = createWindow({0, 0, 1, 1});
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(_connection, window, XCB_CW_EVENT_MASK, &events);
    xcb_change_property(_connection, XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(_connection);
    std::uint32_t time = XCB_CURRENT_TIME;
    while (time == XCB_CURRENT_TIME) {
        const Reply<xcb_generic_event_t> event(xcb_wait_for_event(_connection));
        if (event == nullptr) {
            ADD_FAILURE() << "the X server has disconnected";
            break;
        }
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY && change.window == window) {
            time = change.time;
        }
    }
    xcb_destroy_window(_connection, window);
    return time;
}

// Sends the server's time with the request, as a task bar does. For a request without a time,
// Cinnamon assumes the time at which it reads the request, and then refuses the program's own
// requests, which have earlier times.
void XDisplay::activate(const ManagedWindow& window) const {
    ask(window.id, "_NET_ACTIVE_WINDOW", fromTaskBar, currentTime());
}

void XDisplay::minimize(const ManagedWindow& window) const {
    ask(window.id, "WM_CHANGE_STATE", iconic);
}

void XDisplay::showWorkspace(std::uint32_t number) const {
    ask(_root, "_NET_CURRENT_DESKTOP", number);
}

std::optional<std::uint32_t> XDisplay::shownWorkspace() const {
    const std::vector<std::uint32_t> shown = numbers(_root, "_NET_CURRENT_DESKTOP");
    return shown.empty() ? std::nullopt : std::optional(shown.front());
}

void XDisplay::close(const ManagedWindow& window) const {
    ask(window.id, "_NET_CLOSE_WINDOW", fromTaskBar);
}

} // namespace glidemap::test
