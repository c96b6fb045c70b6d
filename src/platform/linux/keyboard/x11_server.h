// The X server of this session, asked about its keys. A thin layer: requests and their answers.
//
// Units:   the kernel's key codes; the server's are eight more.
// Thread:  one, which the server's answers are waited for on.
// Owner:   X11HeldModifiers.
// Errors:  connect() answers null.
#pragma once

#include "platform/linux/keyboard/x_key_server.h"

#include <memory>

namespace glidemap {

class X11Server : public XKeyServer {
public:
    // The server that the environment names, or null: it cannot be reached, or lacks XTEST or
    // version 2 of the input extension.
    static std::unique_ptr<X11Server> connect();
    ~X11Server() override;

    std::vector<std::uint16_t> modifiersDown() override;
    KeysDown keysDown() override;
    void type(std::span<const KeyChange> changes) override;
    bool canType(std::span<const KeyChange> changes) const override;
    void listenToReleases(bool listen) override;
    bool heardSomething() override;
    int descriptor() const override;
    bool isAlive() const override;

private:
    struct State;
    explicit X11Server(std::unique_ptr<State> connected);
    std::unique_ptr<State> state;
};

} // namespace glidemap
