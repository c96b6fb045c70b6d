// Sends requests to an X server and processes replies when they arrive. Only the constructor waits
// for the server. Later calls never block, even if the server is busy or grabbed.
//
// Thread:  one; the desktop thread in the program.
// Owner:   X11Backend.
// Errors:  an error reply is passed on as an empty result. After the connection is lost, no more
//          replies arrive.
#pragma once

#include "platform/linux/desktop/x11.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

// The value of a property. It may have been truncated to the requested size.
struct X11Property {
    bool windowIsGone = false;
    bool hasItems = false;            // the property is a 32-bit one; `items` may still be empty
    std::string text;                 // the value of an 8-bit property
    std::vector<std::uint32_t> items; // the value of a 32-bit property
};

// Repeats a query after each change, but with at most one query in flight, so that continuous
// changes cannot flood the server.
class X11Inquiry {
public:
    // Returns true if the caller must send the query now.
    bool begin() {
        again = underWay;
        return !std::exchange(underWay, true);
    }

    // Returns true if the caller must send the query again.
    bool end() {
        underWay = false;
        return std::exchange(again, false);
    }

private:
    bool underWay = false;
    bool again = false;
};

class X11Requests {
public:
    using PropertyTaker = std::function<void(const X11Property&)>;
    using ProcessTaker = std::function<void(std::uint32_t)>; // gets 0 if the process is unknown

    explicit X11Requests(X11Connection connection);

    // Requests at most `items` items of four bytes.
    void property(xcb_window_t window, xcb_atom_t name, std::uint32_t items, PropertyTaker taker);

    // Requests the process id of the client that created the window. It comes from the server, so
    // unlike _NET_WM_PID it is correct even for a program in a sandbox with its own process ids.
    void processOf(xcb_window_t window, ProcessTaker taker);

    // Subscribes to changes of the window's properties.
    void followProperties(xcb_window_t window);

    // Passes the oldest reply to its callback. Returns false if no reply has arrived.
    bool takeReply();

    const X11Connection& server() const { return connection; }

private:
    using Taker = std::function<void(void* answer, xcb_generic_error_t* error)>;

    struct Pending {
        std::uint32_t sequence;
        Taker taker;
    };

    void expect(std::uint32_t sequence, Taker taker);

    X11Connection connection;
    bool knowsProcesses = false;
    std::deque<Pending> pending;
};

} // namespace glidemap
