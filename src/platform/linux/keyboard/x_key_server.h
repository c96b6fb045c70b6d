// Port: the key state of an X server, and typing through it.
//
// Units:   the kernel's key codes.
// Thread:  one, which blocks until the server replies.
// Errors:  after the connection is lost, lists are empty and isAlive() returns false.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <cstdint>
#include <set>
#include <span>
#include <vector>

namespace glidemap {

class XKeyServer {
public:
    // The keys that are down on the user's keyboards and on our uinput keyboard. Keys on the
    // server's XTEST keyboard are in neither set.
    struct KeysDown {
        std::set<std::uint16_t> users;
        std::set<std::uint16_t> ours;
    };

    XKeyServer() = default;
    XKeyServer(const XKeyServer&) = delete;
    XKeyServer& operator=(const XKeyServer&) = delete;
    virtual ~XKeyServer() = default;

    // Returns the modifier keys that are down in the server's merged key state.
    virtual std::vector<std::uint16_t> modifiersDown() = 0;
    virtual KeysDown keysDown() = 0;

    // Types the changes in order on the server's XTEST keyboard.
    virtual void type(std::span<const KeyChange> changes) = 0;
    virtual bool canType(std::span<const KeyChange> changes) const = 0;

    // Switches notifications about key releases on or off, for all keyboards.
    virtual void listenToReleases(bool listen) = 0;

    // Discards pending events, and returns whether there were any. Does not block.
    virtual bool discardEvents() = 0;

    // Returns a descriptor that becomes readable when events are pending.
    virtual int descriptor() const = 0;
    virtual bool isAlive() const = 0;
};

} // namespace glidemap
