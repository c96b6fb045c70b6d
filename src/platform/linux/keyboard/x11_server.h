// What an X server knows about keys and can be asked to type. A thin layer: requests and their
// answers.
//
// Units:   the kernel's key codes; the server's are eight more.
// Thread:  one, which the server's answers are waited for on.
// Owner:   X11HeldModifiers.
// Errors:  connect() answers null. A server that has gone answers with empty lists, and isAlive()
// says so.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <vector>

namespace glidemap {

class X11Server {
public:
    // The server that the environment names, or null: it cannot be reached, or lacks XTEST or
    // version 2 of the input extension.
    static std::unique_ptr<X11Server> connect();
    X11Server(const X11Server&) = delete;
    X11Server& operator=(const X11Server&) = delete;
    ~X11Server();

    // Modifier keys that are down for the desktop, whoever holds them.
    std::vector<std::uint16_t> modifiersDown();

    // Keys that are down on the user's keyboards, and on the one that is ours. The server's own
    // pretended keyboard is neither.
    struct KeysDown {
        std::set<std::uint16_t> users;
        std::set<std::uint16_t> ours;
    };
    KeysDown keysDown();

    // Types by the server's pretended keyboard. The server deals with them one right after the
    // other.
    void type(std::span<const KeyChange> changes);
    static bool canType(std::span<const KeyChange> changes);

    // Whether to hear of keys that come up anywhere.
    void listenToReleases(bool listen);

    // Forgets what was heard; whether there was anything. Does not wait.
    bool heardSomething();

    int descriptor() const;
    bool isAlive() const;

private:
    struct State;
    explicit X11Server(std::unique_ptr<State> connected);
    std::unique_ptr<State> state;
};

} // namespace glidemap
