// The function with which the update checker downloads its manifest. Tests replace it, so they need
// no network.
//
// Thread:  the main thread. `done` is called there exactly once, after the call has returned.
// Owner:   a pending fetch keeps itself alive, even after the function is destroyed.
// Errors:  as text, next to the data that arrived before the error.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace glidemap {

struct Fetched {
    std::string body;                          // empty if nothing arrived
    std::optional<std::string> transportError; // nullopt for any HTTP status
};

using Fetch = std::function<void(const std::string& url, std::function<void(const Fetched&)> done)>;

} // namespace glidemap
