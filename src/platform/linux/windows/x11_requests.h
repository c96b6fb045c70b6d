// Requests to an X server whose answers are taken when they have come, never waited for: a server
// that is busy or grabbed holds up nobody.
//
// Thread:  one; the desktop thread in the program.
// Owner:   X11Backend.
// Errors:  an answer that is an error is told as none. The end of the connection is told by
//          isLost(), and then nothing more is answered.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

struct X11Freed {
    void operator()(void* answer) const;
};

// The value of a property, already cut to what was asked for.
struct X11Property {
    bool windowIsGone = false;
    bool hasItems = false;            // it is a 32-bit one, if of no items
    std::string text;                 // of 8-bit properties
    std::vector<std::uint32_t> items; // of 32-bit ones
};

class X11Requests {
public:
    using Connection = std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)>;
    using PropertyTaker = std::function<void(const X11Property&)>;
    using ProcessTaker = std::function<void(std::uint32_t)>; // 0 if the server does not know

    explicit X11Requests(Connection established);

    // At most that many items of four bytes are transferred.
    void property(xcb_window_t window, xcb_atom_t name, std::uint32_t items, PropertyTaker taker);

    // The process at the other end of the window's connection, by the server's own knowledge. That
    // holds where _NET_WM_PID does not: inside a sandbox processes have other numbers.
    void processOf(xcb_window_t window, ProcessTaker taker);

    // From now on changes of the window's properties are told as events.
    void followProperties(xcb_window_t window);

    // Gives the oldest answer that has come to whoever asked. False if there is none yet.
    bool takeAnswer();

    void flush();
    bool isLost() const;
    xcb_connection_t* raw() const;

private:
    using Taker = std::function<void(void* answer, xcb_generic_error_t* error)>;

    struct Pending {
        std::uint32_t sequence;
        Taker taker;
    };

    void expect(std::uint32_t sequence, Taker taker);

    Connection connection;
    bool knowsProcesses = false;
    std::deque<Pending> pending;
};

} // namespace glidemap
