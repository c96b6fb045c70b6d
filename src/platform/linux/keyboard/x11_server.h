// Asks the X server of this session which keys are down, and types keys through it. Contains only
// requests and replies, no decisions.
//
// Units:   the kernel's key codes; the server's codes are higher by eight.
// Thread:  one, which blocks until the server replies.
// Owner:   X11HeldModifiers.
// Errors:  connect() returns null.
#pragma once

#include "platform/linux/desktop/x11.h"
#include "platform/linux/keyboard/x_key_server.h"

#include <memory>

namespace glidemap {

class X11Server : public XKeyServer {
public:
    // Connects to the server that DISPLAY names. Returns null if the server cannot be reached, or
    // does not support XTEST or version 2 of the input extension.
    static std::unique_ptr<X11Server> connect();
    ~X11Server() override;

    std::vector<std::uint16_t> modifiersDown() override;
    KeysDown keysDown() override;
    void type(std::span<const KeyChange> changes) override;
    bool canType(std::span<const KeyChange> changes) const override;
    void listenToReleases(bool listen) override;
    bool discardEvents() override;
    int descriptor() const override;
    bool isAlive() const override;

private:
    explicit X11Server(X11Connection connected);

    void addKeysDown(std::uint16_t device, std::set<std::uint16_t>& keys) const;

    const X11Connection server;
};

} // namespace glidemap
