#include "platform/linux/desktop/x11.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <utility>

namespace glidemap {

namespace {

constexpr std::string_view launchBegins = "_NET_STARTUP_INFO_BEGIN";
constexpr std::string_view launchContinues = "_NET_STARTUP_INFO";

xcb_client_message_event_t clientMessage(xcb_window_t window, xcb_atom_t type,
                                         std::uint8_t format) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = format;
    event.window = window;
    event.type = type;
    return event;
}

} // namespace

void X11Release::operator()(void* allocated) const {
    std::free(allocated);
}

struct X11Connection::State {
    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection;
    int screen = 0;
    std::map<std::string, xcb_atom_t, std::less<>> atoms = {};

    void send(const xcb_client_message_event_t& event, xcb_window_t root,
              std::uint32_t mask) const {
        xcb_send_event(connection.get(), 0, root, mask, reinterpret_cast<const char*>(&event));
    }
};

std::optional<X11Connection> X11Connection::open(const std::string& display) {
    int screen = 0;
    auto* const connection = xcb_connect(display.empty() ? nullptr : display.c_str(), &screen);
    const X11Connection opened(
        std::make_shared<State>(State{{connection, xcb_disconnect}, screen}));
    return opened.isLost() ? std::nullopt : std::optional(opened);
}

X11Connection::X11Connection(xcb_connection_t* borrowed)
    : X11Connection(std::make_shared<State>(State{{borrowed, [](xcb_connection_t*) {
                                                   }}})) {}

X11Connection::X11Connection(std::shared_ptr<State> state) : state(std::move(state)) {}

xcb_connection_t* X11Connection::raw() const {
    return state->connection.get();
}

std::uint32_t X11Connection::root() const {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(raw()));
    for (int left = state->screen; left > 0 && screens.rem > 1; --left) {
        xcb_screen_next(&screens);
    }
    return screens.data->root;
}

int X11Connection::screen() const {
    return state->screen;
}

bool X11Connection::isLost() const {
    return xcb_connection_has_error(raw()) != 0;
}

int X11Connection::descriptor() const {
    return xcb_get_file_descriptor(raw());
}

void X11Connection::flush() const {
    xcb_flush(raw());
}

std::vector<std::uint32_t> X11Connection::atoms(const std::vector<std::string_view>& names) const {
    std::vector<std::pair<std::string_view, xcb_intern_atom_cookie_t>> requests;
    for (const std::string_view name : names) {
        if (!state->atoms.contains(name)) {
            requests.emplace_back(
                name,
                xcb_intern_atom(raw(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
        }
    }
    for (const auto& [name, request] : requests) {
        if (const auto known = reply(xcb_intern_atom_reply, request)) {
            state->atoms.emplace(name, known->atom);
        }
    }
    std::vector<std::uint32_t> result;
    for (const std::string_view name : names) {
        const auto known = state->atoms.find(name);
        result.push_back(known != state->atoms.end() ? known->second : xcb_atom_t{XCB_ATOM_NONE});
    }
    return result;
}

std::uint32_t X11Connection::atom(std::string_view name) const {
    return atoms({name}).front();
}

bool X11Connection::selectionHasOwner(std::string_view selection) const {
    const auto owner =
        reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(raw(), atom(selection)));
    return owner != nullptr && owner->owner != XCB_WINDOW_NONE;
}

void X11Connection::requestFromWindowManager(std::uint32_t window, std::string_view request,
                                             const std::array<std::uint32_t, 5>& details) const {
    auto event = clientMessage(window, atom(request), 32);
    std::ranges::copy(details, event.data.data32);
    state->send(event, root(),
                XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

void X11Connection::broadcastLaunch(std::uint32_t window,
                                    const std::vector<std::string>& pieces) const {
    const auto types = atoms({launchBegins, launchContinues});
    auto event = clientMessage(window, types[0], 8);
    for (const std::string& piece : pieces) {
        std::ranges::fill(event.data.data8, 0);
        std::ranges::copy(piece, event.data.data8);
        state->send(event, root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
        event.type = types[1];
    }
}

} // namespace glidemap
