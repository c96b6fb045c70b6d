// Adds the protocol xdg_activation to a fake compositor, which sends a token only when the test
// calls reply().
//
// Thread:  the test's; requests arrive on the compositor's thread.
// Owner:   a test; destroy it after the compositor.
// Errors:  a client or a request that does not arrive in time fails the test.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

struct wl_interface;

namespace glidemap {

class FakeCompositor;

class FakeActivation {
public:
    FakeActivation();
    FakeActivation(const FakeActivation&) = delete;
    FakeActivation& operator=(const FakeActivation&) = delete;
    ~FakeActivation();

    // Starts to offer the protocol.
    void offerOn(FakeCompositor& compositor);

    // Offers another interface, which must exist as long as the compositor.
    static void offerInterface(FakeCompositor& compositor, const wl_interface& interface);

    // Waits until a client has found the protocol.
    void waitForClient();

    // Waits for the next request, and returns its arguments: "application", and then "serial" and
    // "surface" if the request contains them.
    std::vector<std::string> nextRequest();

    // Replies to a request, counted from 0. Does nothing if the client has destroyed it.
    void reply(FakeCompositor& compositor, std::size_t request, const std::string& token);

    // Returns the number of requests that the client has not destroyed.
    std::size_t openRequests(FakeCompositor& compositor) const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
