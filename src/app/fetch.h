// How the update checker downloads its manifest: a function, so that tests need no network.
//
// Thread:  the main thread. `done` is called there exactly once, and never within the call itself.
// Owner:   a pending fetch keeps itself alive, even after the function is destroyed.
// Errors:  as text, next to the data that arrived before the error.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace glidemap {

struct Fetched {
    std::string body;                          // empty if nothing arrived
    std::optional<std::string> transportError; // unset for any HTTP status
};

using Fetch = std::function<void(const std::string& url, std::function<void(const Fetched&)> done)>;

} // namespace glidemap
