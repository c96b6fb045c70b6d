// Port: what an X server knows about keys and can be asked to type.
//
// Units:   the kernel's key codes.
// Thread:  one, which the server's answers are waited for on.
// Errors:  a server that has gone answers with empty lists, and isAlive() says so.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <cstdint>
#include <set>
#include <span>
#include <vector>

namespace glidemap {

class XKeyServer {
public:
    // Keys that are down on the user's keyboards, and on the one that is ours. The server's own
    // pretended keyboard is neither.
    struct KeysDown {
        std::set<std::uint16_t> users;
        std::set<std::uint16_t> ours;
    };

    XKeyServer() = default;
    XKeyServer(const XKeyServer&) = delete;
    XKeyServer& operator=(const XKeyServer&) = delete;
    virtual ~XKeyServer() = default;

    // Modifier keys that are down for the desktop, whoever holds them.
    virtual std::vector<std::uint16_t> modifiersDown() = 0;
    virtual KeysDown keysDown() = 0;

    // Types by the server's pretended keyboard. The server deals with them one right after the
    // other.
    virtual void type(std::span<const KeyChange> changes) = 0;
    virtual bool canType(std::span<const KeyChange> changes) const = 0;

    // Whether to hear of keys that come up anywhere.
    virtual void listenToReleases(bool listen) = 0;

    // Forgets what was heard; whether there was anything. Does not wait.
    virtual bool heardSomething() = 0;

    // Can be read when there is something to hear.
    virtual int descriptor() const = 0;
    virtual bool isAlive() const = 0;
};

} // namespace glidemap
