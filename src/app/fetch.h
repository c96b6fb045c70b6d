// How the update checker reaches what is published: a function, so that its rules need no network.
//
// Thread:  the main thread; `done` is called there, once, and never from within the call itself.
// Owner:   what is under way keeps itself alive, whatever becomes of the function.
// Errors:  as text beside whatever had come until then.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace glidemap {

struct Fetched {
    std::string body;                          // empty where none came
    std::optional<std::string> transportError; // an answer of any HTTP status is none
};

using Fetch = std::function<void(const std::string& url, std::function<void(const Fetched&)> done)>;

} // namespace glidemap
