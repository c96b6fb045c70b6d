// The function with which the update checker downloads the manifest. Tests replace it, so they need
// no network.
//
// Thread:  the main thread. `done` is called once, after the function has returned, but not if the
//          application quits first.
// Owner:   a pending fetch owns itself, so the function may be destroyed before the fetch ends.
// Errors:  passed to `done` as text, together with the data that arrived before the error.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace glidemap {

struct Fetched {
    std::string body;                          // empty if nothing arrived
    std::optional<std::string> transportError; // not set for an HTTP error status
};

using Fetch = std::function<void(const std::string& url, std::function<void(const Fetched&)> done)>;

} // namespace glidemap
