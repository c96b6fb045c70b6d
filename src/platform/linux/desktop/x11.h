// A connection to an X server. Caches atoms, and sends the requests that several services need.
//
// Thread:  the connection's thread. Requests wait for the server, except where noted.
// Owner:   any. Copies share the connection; the last copy closes it.
// Errors:  open() returns nullopt. A request that fails, for example on a lost connection, returns
//          null, XCB_ATOM_NONE or false.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using xcb_connection_t = struct xcb_connection_t;

namespace glidemap {

struct X11Release {
    void operator()(void* allocated) const; // frees a reply, an event or an error
};

template <typename Reply>
using X11Reply = std::unique_ptr<Reply, X11Release>;

class X11Connection {
public:
    // Connects to `display`. If it is empty, connects to the display that DISPLAY names.
    static std::optional<X11Connection> open(const std::string& display = {});

    // Uses a connection that another library owns and closes.
    explicit X11Connection(xcb_connection_t* borrowed);

    xcb_connection_t* raw() const;
    std::uint32_t root() const; // the root window of the connection's screen
    int screen() const;         // the screen's number
    bool isLost() const;
    int descriptor() const;
    void flush() const;

    // Waits for the server only once, for all names whose atoms are not known yet.
    std::vector<std::uint32_t> atoms(const std::vector<std::string_view>& names) const;
    std::uint32_t atom(std::string_view name) const;

    // Whether a program owns the selection. Some services announce themselves in this way.
    bool selectionHasOwner(std::string_view selection) const;

    // This function and the next one do not flush. They wait for the server only if an atom that
    // they use is not cached yet.
    void requestFromWindowManager(std::uint32_t window, std::string_view request,
                                  const std::array<std::uint32_t, 5>& details) const;

    // Sends the pieces of launchMessage() to all programs.
    void broadcastLaunch(std::uint32_t window, const std::vector<std::string>& pieces) const;

    // Waits for the reply to a request; `fetch` is the xcb function that fetches it.
    template <typename Reply, typename Cookie, typename Error>
    X11Reply<Reply> reply(Reply* (*fetch)(xcb_connection_t*, Cookie, Error**),
                          Cookie request) const {
        Error* failure = nullptr;
        X11Reply<Reply> received(fetch(raw(), request, &failure));
        const X11Reply<Error> unused(failure);
        return received;
    }

private:
    struct State;

    explicit X11Connection(std::shared_ptr<State> state);

    std::shared_ptr<State> state;
};

} // namespace glidemap
