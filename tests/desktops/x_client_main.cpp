// Creates a window, prints its id, and then executes the commands on standard input, one per line.
// Prints "done" when the X server has completed a command.
//
// glidemap-x-client NAME TITLE shows the window at once, as the application NAME, and prints
// "shown".
#include <poll.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Free {
    void operator()(void* answer) const { std::free(answer); }
};

class Client {
public:
    Client() : connection(xcb_connect(nullptr, nullptr)) {
        const auto* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        root = screen->root;
        window = xcb_generate_id(connection);
        target = window;
        const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 10, 10, 100, 80, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &events);
        finish();
    }

    std::uint32_t number() const { return window; }

    // Returns false for an unknown command.
    bool obey(const std::string& line) {
        std::istringstream words(line);
        std::string verb;
        words >> verb;
        if (verb == "numbers" || verb == "atoms" || verb == "text")
            setProperty(verb, words);
        else if (verb == "root")
            target = root;
        else if (verb == "map")
            map();
        else if (verb == "activate")
            activate();
        else if (verb == "wander")
            wander();
        else if (verb == "destroy")
            xcb_destroy_window(connection, window);
        else if (verb == "grab")
            xcb_grab_server(connection);
        else if (verb == "ungrab")
            xcb_ungrab_server(connection);
        else
            return false;
        finish();
        return true;
    }

private:
    xcb_atom_t atom(const std::string& name) {
        const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return reply->atom;
    }

    void setProperty(const std::string& kind, std::istringstream& words) {
        std::string name;
        words >> name;
        if (kind == "text")
            setText(name, words);
        else
            setItems(name, kind == "atoms", words);
    }

    void setItems(const std::string& name, bool areAtoms, std::istringstream& words) {
        std::vector<std::uint32_t> items;
        for (std::string word; words >> word;)
            items.push_back(areAtoms ? atom(word) : static_cast<std::uint32_t>(std::stoul(word)));
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, target, atom(name),
                            areAtoms ? XCB_ATOM_ATOM : XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(items.size()), items.data());
    }

    static std::string withNulls(std::string text) {
        constexpr std::string_view escape = "\\0";
        for (std::size_t at = 0; (at = text.find(escape, at)) != std::string::npos; ++at)
            text.replace(at, escape.size(), 1, '\0');
        return text;
    }

    void setText(const std::string& name, std::istringstream& words) {
        int times = 0;
        words >> times;
        words.get();
        std::string text;
        std::getline(words, text);
        text = withNulls(text);
        std::string whole;
        for (int count = 0; count < times; ++count)
            whole += text;
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, target, atom(name), XCB_ATOM_STRING,
                            8, static_cast<std::uint32_t>(whole.size()), whole.data());
    }

    // On startup, openbox may leave events in its queue and read them only when more events arrive.
    // So the function sends another request if the window is not mapped soon.
    void map() {
        constexpr int soon = 200; // milliseconds
        xcb_map_window(connection, window);
        while (!hasBeenMapped()) {
            xcb_flush(connection);
            pollfd waited{xcb_get_file_descriptor(connection), POLLIN, 0};
            if (poll(&waited, 1, soon) == 0)
                notifyWindowManager("_NET_REQUEST_FRAME_EXTENTS", 0);
        }
    }

    // Also returns true if the connection is lost.
    bool hasBeenMapped() {
        while (const std::unique_ptr<xcb_generic_event_t, Free> event{
            xcb_poll_for_event(connection)}) {
            if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY)
                return true;
        }
        return xcb_connection_has_error(connection) != 0;
    }

    void activate() {
        notifyWindowManager("_NET_ACTIVE_WINDOW", 2); // 2: from a pager, never refused
    }

    void notifyWindowManager(const std::string& type, std::uint32_t value) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom(type);
        message.data.data32[0] = value;
        xcb_send_event(connection, 0, root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
    }

    void wander() {
        for (std::uint32_t step = 0; step < 100; ++step) {
            const std::uint32_t place[] = {step, step};
            xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                                 place);
        }
    }

    // The reply arrives after all earlier requests are complete.
    void finish() {
        const std::unique_ptr<xcb_get_input_focus_reply_t, Free> reply(
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    }

    xcb_connection_t* connection;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_window_t window = XCB_WINDOW_NONE;
    xcb_window_t target = XCB_WINDOW_NONE; // the window whose properties are set
};

} // namespace

int main(int count, char** arguments) {
    Client client;
    if (count == 3) {
        const std::string name = arguments[1];
        client.obey("text WM_CLASS 1 " + name + "\\0" + name + "\\0");
        client.obey(std::string("text WM_NAME 1 ") + arguments[2]);
        client.obey("map");
        std::cout << "shown" << std::endl;
        return std::cin.ignore(std::numeric_limits<std::streamsize>::max()).bad() ? 1 : 0;
    }
    std::cout << client.number() << std::endl;
    for (std::string line; std::getline(std::cin, line);)
        std::cout << (client.obey(line) ? "done" : "what?") << std::endl;
}
